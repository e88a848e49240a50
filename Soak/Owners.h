#pragma once

#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <sys/types.h>

#include "Soak/Bus.h"
#include "Soak/Launch.h"
#include "Tests/Support/GIOHandles.h"
#include "Tests/Support/ServingThread.h"

namespace Soak {

/// Records the processes that own a name on the bus.
class Owners {
 public:
  explicit Owners(const std::string& busName);
  Owners(const Owners&) = delete;
  Owners& operator=(const Owners&) = delete;
  ~Owners();

  /// Whether the process, which was killed at this time, has owned the name since the recording began. An owner that
  /// ended before the bus could say which process it was counts as every process that was killed in the second before.
  [[nodiscard]] bool include(pid_t process, Clock::time_point killed) const;

 private:
  static void ownerChanged(GDBusConnection* bus, const gchar* sender, const gchar* path, const gchar* interface,
                           const gchar* signal, GVariant* arguments, gpointer self);
  static void processTold(GObject* bus, GAsyncResult* result, gpointer self);

  DesktopSupport::MainContextHandle context_;
  Bus bus_;
  mutable std::mutex mutex_;
  std::set<pid_t> processes_;
  std::vector<Clock::time_point> endsOfUnknown_;
  guint subscription_ = 0;
  std::optional<TestSupport::ServingThread> thread_;
};

}  // namespace Soak
