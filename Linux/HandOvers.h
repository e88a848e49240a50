#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "Platform/Log.h"

namespace Linux {

/// The calls by which URLs go to their handlers on the bus: some at a time, since a bus takes a limited number of calls
/// that wait for an answer; the others wait. `add` may be called on any thread.
class HandOvers {
 public:
  /// How many calls may be under way to begin with; fewer, once the bus has refused one.
  static constexpr std::size_t mostAtOnce = 64;
  /// How long a handler is usually waited for, from its start to its answer.
  static constexpr std::chrono::seconds usualPatience{25};

  /// Waits for each handler as long as `patience`.
  explicit HandOvers(Platform::Log& log, std::chrono::milliseconds patience = usualPatience)
      : log_(log), patience_(patience) {}
  HandOvers(const HandOvers&) = delete;
  HandOvers& operator=(const HandOvers&) = delete;
  ~HandOvers() = default;

  /// Calls Open of the handler with this bus name, a valid one, with one URL, which is of this scheme. What becomes of
  /// it is logged if it may not have arrived.
  void add(const DesktopSupport::SessionBus& bus, std::string handler, std::string scheme, std::string url);

  /// Runs the main context until every hand-over has completed or failed. For the main thread alone.
  void finish();

 private:
  struct HandOver {
    DesktopSupport::ObjectHandle<GDBusConnection> bus;
    std::string handler;
    std::string scheme;
    DesktopSupport::VariantHandle arguments;
  };
  /// By the order in which they came.
  using Numbered = std::map<std::uint64_t, HandOver>;
  struct Call;

  void beginWaiting();
  void begin(std::uint64_t number, HandOver& handOver);
  void finishCall(std::uint64_t number, const GError* error);
  void report(const HandOver& handOver, const DesktopSupport::BusError& error);
  [[nodiscard]] bool isDone() const;
  static void complete(GObject* connection, GAsyncResult* result, gpointer call);

  /// Guards the hand-overs of all objects: they begin on any thread and complete on the main one.
  static inline std::mutex mutex;

  Platform::Log& log_;
  std::chrono::milliseconds patience_;
  std::uint64_t count_ = 0;
  std::size_t mostAtOnce_ = mostAtOnce;
  Numbered waiting_;
  Numbered underWay_;
  std::chrono::steady_clock::time_point lastBegun_;
};

}  // namespace Linux
