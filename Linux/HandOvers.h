#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <string>

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "Platform/Lifetime.h"
#include "Platform/Log.h"

namespace Linux {

/// Hands URLs to their handlers, by calls on the bus. Several calls are under way at a time, and the others wait, since
/// a bus limits the number of calls without an answer. `add` may be called on any thread.
class HandOvers {
 public:
  /// How many calls may be under way at first; fewer after the bus has refused one.
  static constexpr std::size_t mostAtOnce = 64;
  /// The usual timeout of a handler, from its start to its answer.
  static constexpr std::chrono::seconds usualPatience{25};

  /// `patience` is the timeout of each handler.
  explicit HandOvers(Platform::Log& log, std::chrono::milliseconds patience = usualPatience)
      : log_(log), patience_(patience) {}
  HandOvers(const HandOvers&) = delete;
  HandOvers& operator=(const HandOvers&) = delete;
  ~HandOvers() = default;

  /// Calls Open of the handler with this bus name, which must be valid, with a URL of this scheme. If the URL may not
  /// have arrived, the log says so.
  void add(const DesktopSupport::SessionBus& bus, std::string handler, std::string scheme, std::string url);

  /// Runs the main context until every hand-over has completed or failed. For the main thread alone.
  void finish();

 private:
  struct HandOver {
    DesktopSupport::SessionBus bus;
    std::string handler;
    std::string scheme;
    DesktopSupport::VariantHandle arguments;
  };
  /// By the order of the calls of `add`.
  using Numbered = std::map<std::uint64_t, HandOver>;
  using Finish = std::function<void(const DesktopSupport::BusAnswer& answer)>;

  void beginWaiting();
  void begin(std::uint64_t number, HandOver& handOver);
  void finishCall(std::uint64_t number, const DesktopSupport::BusAnswer& answer);
  void report(const HandOver& handOver, const DesktopSupport::BusError& error);
  [[nodiscard]] bool isDone() const;

  /// Guards the hand-overs of all objects, which begin on any thread and complete on the main one.
  static inline std::mutex mutex;

  Platform::Log& log_;
  std::chrono::milliseconds patience_;
  std::uint64_t count_ = 0;
  std::size_t mostAtOnce_ = mostAtOnce;
  Numbered waiting_;
  Numbered underWay_;
  std::chrono::steady_clock::time_point lastBegun_;
  Platform::Lifetime lifetime_;
};

}  // namespace Linux
