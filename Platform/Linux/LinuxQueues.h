#pragma once

#include <thread>
#include <utility>

#include "Platform/Linux/MainQueue.h"
#include "Platform/Linux/WorkerPool.h"
#include "Platform/Queues.h"

namespace Platform::Linux {

/// Worker threads for the background, GLib's main context for the main thread, which is the one that makes this.
class LinuxQueues : public Queues {
 public:
  void runInBackground(Work work) override { workers_.run(std::move(work)); }
  void runOnMain(Work work) override { main_.run(std::move(work)); }
  void sleep(std::chrono::duration<double> seconds) override { workers_.sleep(seconds); }
  [[nodiscard]] bool isMainThread() const override { return std::this_thread::get_id() == mainThread_; }

 private:
  std::thread::id mainThread_ = std::this_thread::get_id();
  MainQueue main_;
  WorkerPool workers_;
};

}  // namespace Platform::Linux
