#pragma once

#include <condition_variable>
#include <mutex>
#include <string>

#include "Tests/Support/GIOHandles.h"

namespace TestSupport {

/// Counts the messages that match a rule and that the bus has passed on, whoever sends and receives them.
class BusMonitor {
 public:
  /// Counts from now on. Throws if the bus does not allow it.
  explicit BusMonitor(const std::string& rule);
  BusMonitor(const BusMonitor&) = delete;
  BusMonitor& operator=(const BusMonitor&) = delete;
  ~BusMonitor();

  /// Waits until there are at least so many, and returns how many there are. Throws if it takes too long.
  int await(int count);

 private:
  static GDBusMessage* note(GDBusConnection* connection, GDBusMessage* message, gboolean isIncoming, gpointer self);

  ObjectHandle<GDBusConnection> connection_;
  std::string ownName_;
  guint filter_ = 0;
  std::mutex mutex_;
  std::condition_variable changed_;
  int count_ = 0;
};

}  // namespace TestSupport
