#pragma once

#include <stop_token>
#include <thread>

#include <glib.h>

namespace TestSupport {

/// A thread that runs a main context during the lifetime of this object.
class ServingThread {
 public:
  explicit ServingThread(GMainContext* context)
      : context_(context), thread_([context](const std::stop_token& stop) {
          while (!stop.stop_requested())
            g_main_context_iteration(context, /*may_block=*/TRUE);
        }) {}
  ServingThread(const ServingThread&) = delete;
  ServingThread& operator=(const ServingThread&) = delete;
  ~ServingThread() {
    thread_.request_stop();
    g_main_context_wakeup(context_);
  }

 private:
  GMainContext* context_;
  std::jthread thread_;
};

}  // namespace TestSupport
