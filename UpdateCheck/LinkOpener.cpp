#include "UpdateCheck/LinkOpener.h"

#include <optional>

#include <gio/gio.h>

#include "DesktopSupport/System/GLibHandles.h"

namespace UpdateCheck {

namespace {

using Outcome = std::optional<std::expected<void, std::string>>;

void launched(GObject* /*source*/, GAsyncResult* result, gpointer data) {
  DesktopSupport::ErrorHandle error;
  const bool isLaunched = g_app_info_launch_default_for_uri_finish(result, DesktopSupport::Out(error)) != FALSE;
  auto& outcome = *static_cast<Outcome*>(data);
  outcome.emplace();
  if (!isLaunched)
    outcome = std::unexpected(std::string(error->message));
}

}  // namespace

std::expected<void, std::string> LinkOpener::open(const Platform::URL& url) {
  Outcome outcome;
  g_app_info_launch_default_for_uri_async(url.absoluteString().c_str(), nullptr, nullptr, &launched, &outcome);
  while (!outcome)
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
  return *outcome;
}

}  // namespace UpdateCheck
