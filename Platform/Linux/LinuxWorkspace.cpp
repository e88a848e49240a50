#include "Platform/Linux/LinuxWorkspace.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include "DesktopSupport/GLibHandles.h"
#include "DesktopSupport/SessionBus.h"

namespace Platform::Linux {

namespace {

using AppInfoHandle = DesktopSupport::ObjectHandle<GAppInfo>;
using DesktopSupport::ErrorHandle;
using DesktopSupport::Out;

/// One argument of a process holds at most this many bytes, its terminator not counted (MAX_ARG_STRLEN).
constexpr std::size_t longestArgument = 32UL * 4096 - 1;
/// A D-Bus message holds at most 128 MiB; the last KiB is left to its header.
constexpr std::size_t longestMessageText = (128UL << 20) - 1024;

AppInfoHandle handlerForScheme(const URL& url) {
  const std::string scheme(url.scheme().value_or(""));
  return AppInfoHandle(scheme.empty() ? nullptr : g_app_info_get_default_for_uri_scheme(scheme.c_str()));
}

bool isActivatedByBus(GAppInfo* handler) {
  return G_IS_DESKTOP_APP_INFO(handler) &&
         g_desktop_app_info_get_boolean(G_DESKTOP_APP_INFO(handler), "DBusActivatable");
}

/// Why a text of this length cannot reach the handler; none where it can.
std::optional<std::string> obstacle(GAppInfo* handler, std::size_t length) {
  const bool byBus = isActivatedByBus(handler);
  if (byBus && !DesktopSupport::SessionBus::connect())  // GIO would start a bus to ask for the handler
    return "there is no session bus";
  const std::size_t limit = byBus ? longestMessageText : longestArgument;
  if (length <= limit)
    return std::nullopt;
  return std::string("the URL is ") + std::to_string(length) + " bytes long, and " +
         (byBus ? "a D-Bus message" : "one argument of a process") + " holds at most " + std::to_string(limit);
}

}  // namespace

/// A URL on its way, and whom to tell when it has got there.
struct LinuxWorkspace::HandOver {
  LinuxWorkspace& workspace;
  URL url;
};

void LinuxWorkspace::open(const URL& url) {
  const AppInfoHandle handler = handlerForScheme(url);
  if (!handler)
    return reportFailure(url, "no application is registered for its scheme");
  if (const auto reason = obstacle(handler.get(), url.absoluteString().size()))
    return reportFailure(url, *reason);

  ++handOversUnderWay_;
  auto handOver = std::make_unique<HandOver>(*this, url);
  std::string text = url.absoluteString();  // a list holds what may be changed
  const std::unique_ptr<GList, DesktopSupport::ReleasedBy<g_list_free>> uris(g_list_append(nullptr, text.data()));
  g_app_info_launch_uris_async(
      handler.get(), uris.get(), nullptr, nullptr,
      [](GObject* source, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<HandOver> finished(static_cast<HandOver*>(data));
        ErrorHandle error;
        g_app_info_launch_uris_finish(G_APP_INFO(source), result, Out(error));
        if (error)
          finished->workspace.reportFailure(finished->url, error->message);
        --finished->workspace.handOversUnderWay_;
      },
      handOver.release());
}

void LinuxWorkspace::finishHandOvers() {
  while (handOversUnderWay_ > 0)
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
}

void LinuxWorkspace::reportFailure(const URL& url, const std::string& reason) {
  log_.write("could not hand over a " + std::string(url.scheme().value_or("")) + ": URL: " + reason);
}

}  // namespace Platform::Linux
