#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <glib.h>

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "Linux/Launching/BusPresence.h"
#include "Linux/Launching/FreshProcesses.h"
#include "Linux/Launching/LaunchQueue.h"
#include "Linux/Launching/Signals.h"
#include "Platform/Log.h"

namespace Linux {

/// Sees to it that each launch from the bus is done, even if the main thread is busy. A thread of its own receives the
/// launch, offers it to the main thread, and gives it to a fresh process if the main thread does not begin with it in
/// time. A caller that does refused launches itself is refused instead.
///
/// The operations are for the main thread.
class LaunchService {
 public:
  /// How long `acquireNameLater` waits. Most processes with one launch to do end within this time. The caller of that
  /// launch waits for their end, and would wait longer if they received other launches under the name.
  static constexpr std::chrono::seconds timeWithoutName{1};

  /// Offers the launches to the main thread in `queue`, and calls `wakeMainThread` after each one, on the service's
  /// thread.
  LaunchService(LaunchQueue& queue, std::function<void()> wakeMainThread, Platform::Log& log);
  LaunchService(const LaunchService&) = delete;
  LaunchService& operator=(const LaunchService&) = delete;
  /// Passes on the launches that have come meanwhile.
  ~LaunchService();

  /// Takes the application's name on the bus. Launches wait until `start`. False if the name cannot be taken.
  [[nodiscard]] bool acquireName(DesktopSupport::SessionBus bus, const std::string& identifier);

  /// Takes the name `timeWithoutName` from now, if it is free and the service was started.
  void acquireNameLater(const std::string& identifier);

  /// Delivers the launch URLs to the process that has the name; see `BusPresence::forward`.
  [[nodiscard]] bool forward(std::vector<std::string>& launchURLs) const { return presence_->forward(launchURLs); }

  /// Begins to receive launches. If the process aborts from here on, the launches that wait are given to fresh
  /// processes first.
  void start();

  /// Gives up the name. When this returns, all launches that were sent to it have been received.
  void releaseName();

  /// Gives all launches that wait to fresh processes. When this returns, these have been started and the callers were
  /// answered.
  void passOnAll();

 private:
  void serve();
  void onServiceThread(const std::function<void()>& work) const;
  void take(Launch launch);
  void receiveAll();
  void passOn(std::vector<Launch> launches);
  void finishPassingOn();
  void leaveBeforeAbort();
  void setTimer();
  static gboolean timeCame(gpointer self);
  static gboolean timeForNameCame(gpointer self);

  LaunchQueue& queue_;
  std::function<void()> wakeMainThread_;
  DesktopSupport::MainContextHandle context_{g_main_context_new()};
  FreshProcesses freshProcesses_;
  std::unique_ptr<BusPresence> presence_;
  GSource* timer_;
  std::string nameForLater_;
  GSource* nameTimer_ = nullptr;
  std::atomic<bool> isOver_ = false;
  std::thread thread_;
  std::unique_ptr<AbortNotice> abortNotice_;
};

}  // namespace Linux
