#include "Linux/HandOvers.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "DesktopSupport/Bus/ApplicationBus.h"
#include "Linux/MainContext.h"

namespace Linux {

namespace {

using DesktopSupport::BusAnswer;
using DesktopSupport::BusError;
namespace BusErrorName = DesktopSupport::BusErrorName;

/// The bus ends each call in time. If it ever fails to, the process still ends, this much later.
constexpr std::chrono::seconds longestDelay{5};

}  // namespace

void HandOvers::add(const DesktopSupport::SessionBus& bus, std::string handler, std::string scheme, std::string url) {
  HandOver handOver{.bus = bus,
                    .handler = std::move(handler),
                    .scheme = std::move(scheme),
                    .arguments = DesktopSupport::owned(DesktopSupport::openArguments(std::move(url)))};
  const std::lock_guard lock(mutex);
  waiting_.emplace(count_++, std::move(handOver));
  beginWaiting();
}

void HandOvers::beginWaiting() {
  while (!waiting_.empty() && underWay_.size() < mostAtOnce_) {
    const auto moved = underWay_.insert(waiting_.extract(waiting_.begin()));
    begin(moved.position->first, moved.position->second);
  }
}

void HandOvers::begin(std::uint64_t number, HandOver& handOver) {
  lastBegun_ = std::chrono::steady_clock::now();
  const Finish finishThis = lifetime_.guarded([this, number](const BusAnswer& answer) { finishCall(number, answer); });
  handOver.bus.callLater({handOver.handler, DesktopSupport::applicationObjectPath(handOver.handler),
                          DesktopSupport::applicationInterface, "Open"},
                         handOver.arguments.get(), patience_, DesktopSupport::Activation::ifNeeded,
                         [finishThis](const BusAnswer& answer) {
                           const std::lock_guard lock(mutex);
                           finishThis(answer);
                         });
}

/// Called from the main context, whichever thread began the call.
void HandOvers::finishCall(std::uint64_t number, const BusAnswer& answer) {
  auto finished = underWay_.extract(number);
  if (!answer) {
    const BusError& problem = answer.error();
    // The bus had no room for the call and has not sent it. There will be room when another one is done.
    if (problem.name == BusErrorName::limitsExceeded && !underWay_.empty()) {
      mostAtOnce_ = underWay_.size();
      waiting_.insert(std::move(finished));
    } else {
      report(finished.mapped(), problem);
    }
  }
  beginWaiting();
}

void HandOvers::report(const HandOver& handOver, const BusError& error) {
  const std::string url = "a " + handOver.scheme + ": URL";
  if (error.name == BusErrorName::timeout)
    log_.write("handed over " + url + " and had no answer within " +
               std::to_string(std::chrono::duration_cast<std::chrono::seconds>(patience_).count()) +
               " seconds: its handler may still receive it");
  else if (error.name == BusErrorName::noReply || error.name == BusErrorName::disconnected)
    log_.write("handed over " + url +
               " and had no answer: whether its handler has received it is not known: " + error.message);
  else
    log_.write("could not hand over " + url + ": " + error.message);
}

void HandOvers::finish() {
  runMainContextUntil([this] { return isDone(); });
}

bool HandOvers::isDone() const {
  const std::lock_guard lock(mutex);
  return underWay_.empty() || std::chrono::steady_clock::now() - lastBegun_ > patience_ + longestDelay;
}

}  // namespace Linux
