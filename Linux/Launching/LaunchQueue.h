#pragma once

#include <chrono>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace Linux {

/// The caller of launches that came by the bus, which waits for an answer. Dropping the last reference accepts. May be
/// called on any thread; the first answer counts.
class LaunchCaller {
 public:
  virtual ~LaunchCaller() = default;

  /// Answers that the launches are done, or will be.
  virtual void accept() = 0;
  /// Answers that they are not, and why.
  virtual void refuse(const std::string& reason) = 0;
  /// Whether the caller does a refused launch itself.
  [[nodiscard]] virtual bool helpsItself() const = 0;
};

/// One thing that the application was started or called for.
struct Launch {
  using Clock = std::chrono::steady_clock;

  /// The launch URL, unchanged; `nullopt` if the application only has to be there.
  std::optional<std::string> url;
  /// The time by which it must begin in this process; `nullopt` if it may wait for any time.
  std::optional<Clock::time_point> beginBy = std::nullopt;
  /// Null for what was on the command line.
  std::shared_ptr<LaunchCaller> caller = nullptr;
};

/// The launches that wait for the main thread, which takes one at a time. May be used on any thread.
class LaunchQueue {
 public:
  using TimePoint = Launch::Clock::time_point;

  /// How long the caller of a launch that has begun waits before it is accepted anyway.
  static constexpr std::chrono::milliseconds longestSilence{1000};

  /// Adds the launch at the end. If a launch has been overdue since the main thread last asked for one, this one is
  /// overdue at once, unless it has no time limit.
  void add(Launch launch, TimePoint now = Launch::Clock::now());

  /// Takes the first launch for the main thread. `nullopt` if the main thread has one in hand, or if all that wait are
  /// overdue. The caller of the launch stays here until `finish`.
  [[nodiscard]] std::optional<Launch> begin(TimePoint now = Launch::Clock::now());

  /// Says that the launch in hand is done, and accepts for its caller.
  void finish();

  /// Takes out the launches that have not begun in time.
  [[nodiscard]] std::vector<Launch> takeOverdue(TimePoint now);

  /// Takes out all launches that have not begun.
  [[nodiscard]] std::vector<Launch> takeAll();

  /// Accepts for the caller of the launch in hand if that began `longestSilence` ago.
  void acceptIfSlow(TimePoint now);

  /// When `takeOverdue` or `acceptIfSlow` have something to do next; `nullopt` if nothing has a time limit.
  [[nodiscard]] std::optional<TimePoint> nextDeadline() const;

 private:
  struct InHand {
    std::shared_ptr<LaunchCaller> caller;
    TimePoint acceptAt;
  };

  mutable std::mutex mutex_;
  std::deque<Launch> waiting_;
  std::optional<InHand> inHand_;
  /// Whether a launch has been overdue since the main thread last asked for one.
  bool isStuck_ = false;
};

}  // namespace Linux
