#include "Linux/Launching/BusPresence.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <iterator>
#include <string_view>
#include <utility>

#include "DesktopSupport/Bus/ApplicationBus.h"
#include "DesktopSupport/Bus/BusDaemon.h"
#include "DesktopSupport/System/GLibHandles.h"

namespace Linux {

namespace {

using DesktopSupport::BusDaemon;
using DesktopSupport::BusInvocation;
using DesktopSupport::VariantHandle;
using std::chrono::microseconds;

/// The key of the deadline in the platform data: in microseconds on the monotonic clock, which all processes share.
constexpr const char* deadlineKey = "deskloom-begin-by";

/// The caller of one invocation.
class BusCaller : public LaunchCaller {
 public:
  BusCaller(BusInvocation invocation, bool helpsItself)
      : invocation_(std::move(invocation)), helpsItself_(helpsItself) {}
  BusCaller(const BusCaller&) = delete;
  BusCaller& operator=(const BusCaller&) = delete;
  ~BusCaller() override { BusCaller::accept(); }

  void accept() override {
    if (!isAnswered_.exchange(true))
      invocation_.answer(nullptr);
  }
  void refuse(const std::string& reason) override {
    if (!isAnswered_.exchange(true))
      invocation_.refuse({.name = std::string(DesktopSupport::BusErrorName::failed), .message = reason});
  }
  [[nodiscard]] bool helpsItself() const override { return helpsItself_; }

 private:
  BusInvocation invocation_;
  bool helpsItself_;
  std::atomic<bool> isAnswered_ = false;
};

/// The launch URLs that a call asks for; one `nullopt` for a call other than Open.
std::vector<std::optional<std::string>> requestedURLs(std::string_view method, GVariant* arguments) {
  if (method != "Open")
    return {std::nullopt};
  std::vector<std::string> urls = DesktopSupport::openedURLs(arguments);
  return {std::make_move_iterator(urls.begin()), std::make_move_iterator(urls.end())};
}

std::optional<microseconds> callersDeadline(GVariant* arguments) {
  const VariantHandle data(g_variant_get_child_value(arguments, g_variant_n_children(arguments) - 1));
  std::int64_t time = 0;
  if (g_variant_lookup(data.get(), deadlineKey, "x", &time) == FALSE)
    return std::nullopt;
  return microseconds(time);
}

}  // namespace

std::vector<Launch> launchesOf(BusInvocation invocation, Launch::Clock::time_point now) {
  auto requested = requestedURLs(invocation.method(), invocation.arguments());
  const auto deadline = callersDeadline(invocation.arguments());
  // A caller of several launches at once cannot be told which of them are refused.
  const auto caller = std::make_shared<BusCaller>(std::move(invocation), deadline && requested.size() == 1);
  // The caller's deadline may be any number, so it is limited before it becomes a time point.
  const auto nowInMicroseconds = std::chrono::duration_cast<microseconds>(now.time_since_epoch());
  const microseconds wait =
      std::clamp(deadline.value_or(microseconds::max()), nowInMicroseconds, nowInMicroseconds + longestWait) -
      nowInMicroseconds;
  std::vector<Launch> launches;
  for (auto& url : requested)
    launches.push_back({.url = std::move(url), .beginBy = now + wait, .caller = caller});
  return launches;
}

GVariant* dataWithDeadline(Launch::Clock::time_point beginBy) {
  const auto time = std::chrono::duration_cast<microseconds>(beginBy.time_since_epoch());
  GVariantBuilder data;
  g_variant_builder_init(&data, G_VARIANT_TYPE("a{sv}"));
  g_variant_builder_add(&data, "{sv}", deadlineKey, g_variant_new_int64(time.count()));
  return g_variant_builder_end(&data);
}

BusPresence::BusPresence(DesktopSupport::SessionBus bus, std::string identifier, GMainContext* context,
                         TakeLaunch takeLaunch)
    : bus_(std::move(bus)),
      identifier_(std::move(identifier)),
      objectPath_(DesktopSupport::applicationObjectPath(identifier_)),
      takeLaunch_(std::move(takeLaunch)),
      object_(bus_.serve(objectPath_, DesktopSupport::applicationIntrospection, context,
                         [this](BusInvocation invocation) { take(std::move(invocation)); })) {}

bool BusPresence::acquireName() {
  const auto isOwner = BusDaemon(bus_, answerTime).requestName(identifier_);
  mayOwnName_ = isOwner.value_or(true);  // a late answer may still be a yes
  return isOwner.value_or(false);
}

bool BusPresence::forward(std::vector<std::string>& launchURLs) const {
  const auto data = [] { return dataWithDeadline(Launch::Clock::now() + beginTime); };
  if (launchURLs.empty())
    return deliver("Activate", DesktopSupport::activateArguments(data()));
  // One by one, as the owner may be too busy for one of them, or end in between.
  while (!launchURLs.empty()) {
    if (!deliver("Open", DesktopSupport::openArguments(launchURLs.front(), data())))
      return false;
    launchURLs.erase(launchURLs.begin());
  }
  return true;
}

bool BusPresence::deliver(const char* method, GVariant* arguments) const {
  return bus_
      .call({identifier_, objectPath_, DesktopSupport::applicationInterface, method}, arguments, nullptr, answerTime)
      .has_value();
}

void BusPresence::releaseName() {
  if (std::exchange(mayOwnName_, false))
    BusDaemon(bus_, answerTime).releaseName(identifier_);
}

void BusPresence::flush() const {
  if (wasCalled_)
    BusDaemon(bus_, answerTime).synchronize();
}

void BusPresence::take(BusInvocation invocation) {
  wasCalled_ = true;
  for (Launch& launch : launchesOf(std::move(invocation)))
    takeLaunch_(std::move(launch));
}

}  // namespace Linux
