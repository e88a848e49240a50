#pragma once

#include <deque>
#include <mutex>
#include <optional>
#include <vector>

#include "Linux/Launching/Launch.h"

namespace Linux {

/// The launches that wait for the main thread, which takes one at a time. May be used on any thread.
class LaunchQueue {
 public:
  using TimePoint = Launch::Clock::time_point;

  /// How long a caller waits for a launch that has begun before it is told that it is in good hands.
  static constexpr std::chrono::milliseconds longestSilence{1000};

  /// Puts the launch at the end of the line. If one was overdue since the main thread last asked for any, this one is
  /// at once, unless it has all the time.
  void add(Launch launch, TimePoint now = Launch::Clock::now());

  /// Takes the first launch for the main thread, unless that has one in hand; none also if none may begin any more.
  /// What the launch is about is the main thread's; its caller waits here until `finish`.
  [[nodiscard]] std::optional<Launch> begin(TimePoint now = Launch::Clock::now());

  /// Says that the launch in hand is done, and lets its caller go.
  void finish();

  /// Takes the launches out that have not begun in time.
  [[nodiscard]] std::vector<Launch> takeOverdue(TimePoint now);

  /// Takes out all that have not begun.
  [[nodiscard]] std::vector<Launch> takeAll();

  /// Tells the caller of the launch in hand that it has begun, if that was so long ago that the caller would think it
  /// lost.
  void acceptIfSlow(TimePoint now);

  /// When `takeOverdue` or `acceptIfSlow` have something to do next; none if nothing has a time.
  [[nodiscard]] std::optional<TimePoint> nextDeadline() const;

 private:
  struct InHand {
    std::shared_ptr<LaunchCaller> caller;
    TimePoint acceptAt;
  };

  mutable std::mutex mutex_;
  std::deque<Launch> waiting_;
  std::optional<InHand> inHand_;
  /// Whether the main thread has not asked for a launch in time.
  bool isStuck_ = false;
};

}  // namespace Linux
