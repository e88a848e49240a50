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
#include "Linux/Launching/AbortNotice.h"
#include "Linux/Launching/BusPresence.h"
#include "Linux/Launching/FreshProcesses.h"
#include "Linux/Launching/LaunchQueue.h"
#include "Platform/Log.h"

namespace Linux {

/// Sees to it that each launch which comes by the bus is done, whatever the main thread is busy with: a thread of its
/// own takes it, offers it to the main thread, and gives it to a fresh process if the main thread does not begin with
/// it in time. If the caller does refused launches itself, it is refused instead.
///
/// Its operations are for the main thread.
class LaunchService {
 public:
  /// Most processes that have one launch to do end within this time. Whoever gave it to them waits for their end, and
  /// would wait longer if they received other launches under the name.
  static constexpr std::chrono::seconds timeWithoutName{1};

  /// Offers the launches to the main thread in `queue`. After each one `wakeMainThread` is called, on the service's
  /// thread.
  LaunchService(LaunchQueue& queue, std::function<void()> wakeMainThread, Platform::Log& log);
  LaunchService(const LaunchService&) = delete;
  LaunchService& operator=(const LaunchService&) = delete;
  /// Passes on what has come meanwhile.
  ~LaunchService();

  /// Takes the application's name on the bus; what comes waits until `start`. False if it can't be had.
  [[nodiscard]] bool acquireName(DesktopSupport::SessionBus bus, const std::string& identifier);

  /// Takes the name, if it is free, after `timeWithoutName`, once the service has been started.
  void acquireNameLater(const std::string& identifier);

  /// Hands the launch URLs to the process that has the name, as `BusPresence::forward` does.
  [[nodiscard]] bool forward(std::vector<std::string>& launchURLs) const { return presence_->forward(launchURLs); }

  /// Begins to take what the bus delivers. If the process aborts from here on, the launches that wait are given to a
  /// fresh process before.
  void start();

  /// Gives up the name. When this returns, all that was sent to it has come.
  void releaseName();

  /// Gives all that waits to fresh processes. When this returns, they have been started and the callers have their
  /// answers.
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
