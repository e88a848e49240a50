#include "Linux/Launching/LaunchCall.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <string_view>
#include <utility>

#include "DesktopSupport/System/GLibHandles.h"

namespace Linux {

namespace {

using DesktopSupport::ObjectHandle;
using DesktopSupport::VariantHandle;
using std::chrono::microseconds;

/// Under this key the platform data has the time in microseconds on the clock that all processes share.
constexpr const char* deadlineKey = "deskloom-begin-by";

/// Owns its invocation.
class BusCaller : public LaunchCaller {
 public:
  BusCaller(GDBusMethodInvocation* invocation, bool helpsItself) : invocation_(invocation), helpsItself_(helpsItself) {}
  BusCaller(const BusCaller&) = delete;
  BusCaller& operator=(const BusCaller&) = delete;
  ~BusCaller() override { BusCaller::accept(); }

  void accept() override {
    if (GDBusMethodInvocation* const unanswered = take())
      g_dbus_method_invocation_return_value(unanswered, nullptr);
  }
  void refuse(const std::string& reason) override {
    if (GDBusMethodInvocation* const unanswered = take())
      g_dbus_method_invocation_return_error_literal(unanswered, G_DBUS_ERROR, G_DBUS_ERROR_FAILED, reason.c_str());
  }
  [[nodiscard]] bool helpsItself() const override { return helpsItself_; }

 private:
  /// An answer takes a reference with it.
  GDBusMethodInvocation* take() {
    return isAnswered_.exchange(true) ? nullptr : static_cast<GDBusMethodInvocation*>(g_object_ref(invocation_.get()));
  }

  ObjectHandle<GDBusMethodInvocation> invocation_;
  bool helpsItself_;
  std::atomic<bool> isAnswered_ = false;
};

std::vector<std::optional<std::string>> wantedBy(std::string_view method, GVariant* arguments) {
  if (method != "Open")
    return {std::nullopt};
  std::vector<std::optional<std::string>> urls;
  const VariantHandle texts(g_variant_get_child_value(arguments, 0));
  GVariantIter iterator;
  g_variant_iter_init(&iterator, texts.get());
  const gchar* text = nullptr;
  while (g_variant_iter_next(&iterator, "&s", &text))
    urls.emplace_back(text);
  return urls;
}

std::optional<microseconds> callersDeadline(GVariant* arguments) {
  const VariantHandle data(g_variant_get_child_value(arguments, g_variant_n_children(arguments) - 1));
  std::int64_t time = 0;
  if (g_variant_lookup(data.get(), deadlineKey, "x", &time) == FALSE)
    return std::nullopt;
  return microseconds(time);
}

}  // namespace

std::vector<Launch> launchesOf(GDBusMethodInvocation* invocation, Launch::Clock::time_point now) {
  GVariant* const arguments = g_dbus_method_invocation_get_parameters(invocation);
  auto wanted = wantedBy(g_dbus_method_invocation_get_method_name(invocation), arguments);
  const auto deadline = callersDeadline(arguments);
  // Whoever wants several things at once cannot be told which of them are refused.
  const auto caller = std::make_shared<BusCaller>(invocation, deadline && wanted.size() == 1);
  // The caller's time is anything that a number can be, so it is compared before it becomes a time point.
  const auto nowInMicroseconds = std::chrono::duration_cast<microseconds>(now.time_since_epoch());
  const microseconds wait =
      std::clamp(deadline.value_or(microseconds::max()), nowInMicroseconds, nowInMicroseconds + longestWait) -
      nowInMicroseconds;
  std::vector<Launch> launches;
  for (auto& url : wanted)
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

}  // namespace Linux
