#pragma once

#include <thread>
#include <utility>

#include "Linux/Application.h"
#include "Linux/MainQueue.h"
#include "Linux/WorkerPool.h"
#include "Platform/Queues.h"

namespace Linux {

/// Worker threads for the background, GLib's main context for the main thread, which is the one that makes this.
class Queues : public Platform::Queues {
 public:
  /// Begins no work once this application was asked to terminate.
  explicit Queues(const Application& application) : application_(application) {}

  void runInBackground(Work work) override { workers_.run(unlessTerminating(std::move(work))); }
  void runOnMain(Work work) override { main_.run(unlessTerminating(std::move(work))); }
  void sleep(std::chrono::duration<double> seconds) override { workers_.sleep(seconds); }
  [[nodiscard]] bool isMainThread() const override { return std::this_thread::get_id() == mainThread_; }

 private:
  [[nodiscard]] Work unlessTerminating(Work work) const {
    return [this, work = std::move(work)] {
      if (!application_.isTerminating())
        work();
    };
  }

  const Application& application_;
  std::thread::id mainThread_ = std::this_thread::get_id();
  MainQueue main_;
  WorkerPool workers_;
};

}  // namespace Linux
