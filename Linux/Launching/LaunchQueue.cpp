#include "Linux/Launching/LaunchQueue.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Linux {

namespace {

bool isOverdue(const Launch& launch, LaunchQueue::TimePoint now) {
  return launch.beginBy && *launch.beginBy <= now;
}

}  // namespace

void LaunchQueue::add(Launch launch, TimePoint now) {
  const std::lock_guard lock(mutex_);
  if (isStuck_ && launch.beginBy)
    launch.beginBy = std::min(*launch.beginBy, now);
  waiting_.push_back(std::move(launch));
}

std::optional<Launch> LaunchQueue::begin(TimePoint now) {
  const std::lock_guard lock(mutex_);
  if (inHand_)
    return std::nullopt;
  isStuck_ = false;
  const auto first = std::ranges::find_if_not(waiting_, [now](const Launch& launch) { return isOverdue(launch, now); });
  if (first == waiting_.end())
    return std::nullopt;
  Launch launch = std::move(*first);
  waiting_.erase(first);
  inHand_ = InHand{.caller = std::exchange(launch.caller, nullptr), .acceptAt = now + longestSilence};
  return launch;
}

void LaunchQueue::finish() {
  std::shared_ptr<LaunchCaller> caller;  // answered after the lock is gone
  const std::lock_guard lock(mutex_);
  if (inHand_)
    caller = std::move(inHand_->caller);
  inHand_.reset();
}

std::vector<Launch> LaunchQueue::takeOverdue(TimePoint now) {
  const std::lock_guard lock(mutex_);
  const auto overdue = std::stable_partition(waiting_.begin(), waiting_.end(),
                                             [now](const Launch& launch) { return !isOverdue(launch, now); });
  std::vector<Launch> taken(std::make_move_iterator(overdue), std::make_move_iterator(waiting_.end()));
  waiting_.erase(overdue, waiting_.end());
  isStuck_ |= !taken.empty();
  return taken;
}

std::vector<Launch> LaunchQueue::takeAll() {
  const std::lock_guard lock(mutex_);
  std::vector<Launch> taken(std::make_move_iterator(waiting_.begin()), std::make_move_iterator(waiting_.end()));
  waiting_.clear();
  return taken;
}

void LaunchQueue::acceptIfSlow(TimePoint now) {
  std::shared_ptr<LaunchCaller> caller;
  {
    const std::lock_guard lock(mutex_);
    if (inHand_ && inHand_->acceptAt <= now)
      caller = std::move(inHand_->caller);
  }
  if (caller)
    caller->accept();
}

std::optional<LaunchQueue::TimePoint> LaunchQueue::nextDeadline() const {
  const std::lock_guard lock(mutex_);
  std::optional<TimePoint> next;
  const auto consider = [&next](TimePoint time) { next = next ? std::min(*next, time) : time; };
  for (const Launch& launch : waiting_)
    if (launch.beginBy)
      consider(*launch.beginBy);
  if (inHand_ && inHand_->caller)
    consider(inHand_->acceptAt);
  return next;
}

}  // namespace Linux
