#pragma once

#include "Linux/Launching/LaunchQueue.h"
#include "Platform/Application.h"

namespace Linux {

/// The running process as an application on GLib's main context.
class Application : public Platform::LaunchedApplication {
 public:
  using LaunchedApplication::LaunchedApplication;

  /// Delivers the launches that wait in the queue.
  void deliver(LaunchQueue& launches);

  /// Runs the main context until a launch has come or the application is asked to terminate. If no launch comes within
  /// ten seconds, the application terminates.
  void awaitLaunch();

  /// Finishes launching and runs the main context until the application is asked to terminate. Does neither if it was
  /// asked already.
  void run();

 private:
  bool wasLaunched_ = false;
};

}  // namespace Linux
