#include "Platform/Linux/LinuxWorkspace.h"

#include <cstddef>
#include <memory>
#include <optional>

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include "DesktopSupport/ApplicationBus.h"
#include "DesktopSupport/ApplicationFolders.h"
#include "DesktopSupport/DesktopEntries.h"
#include "DesktopSupport/GLibHandles.h"
#include "DesktopSupport/SchemeHandler.h"
#include "DesktopSupport/SessionBus.h"

namespace Platform::Linux {

namespace {

using DesktopSupport::DesktopEntry;
using DesktopSupport::ErrorHandle;
using DesktopSupport::Out;
using DesktopSupport::SessionBus;
using DesktopSupport::VariantHandle;

/// One argument of a process holds at most this many bytes, its terminator not counted (MAX_ARG_STRLEN).
constexpr std::size_t longestArgument = 32UL * 4096 - 1;

std::string_view schemeOf(const URL& url) {
  return url.scheme().value_or("");
}

/// Why a text of this length does not fit, where it does not: names what carries it and the limit.
std::optional<std::string> lengthProblem(std::size_t length, std::size_t limit, const char* carrier) {
  if (length <= limit)
    return std::nullopt;
  return "the URL is " + std::to_string(length) + " bytes long, and " + carrier + " holds at most " +
         std::to_string(limit);
}

}  // namespace

/// A URL of this scheme on its way, and whom to tell when it has got there.
struct LinuxWorkspace::HandOver {
  LinuxWorkspace& workspace;
  std::string scheme;

  /// Called from the main context, whichever thread began the hand-over.
  static void complete(GObject* bus, GAsyncResult* result, gpointer data) {
    const std::lock_guard lock(mutex);
    const std::unique_ptr<HandOver> handOver(static_cast<HandOver*>(data));
    ErrorHandle error;
    const VariantHandle answer(g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, Out(error)));
    if (!answer)
      handOver->workspace.reportFailure(handOver->scheme, DesktopSupport::busErrorFrom(*error).message);
    --handOver->workspace.handOversUnderWay_;
  }
};

LinuxWorkspace::HandOver* LinuxWorkspace::beginHandOver(std::string_view scheme) {
  const std::lock_guard lock(mutex);
  ++handOversUnderWay_;
  return new HandOver{*this, std::string(scheme)};
}

void LinuxWorkspace::open(const URL& url) {
  DesktopSupport::DesktopEntries entries(DesktopSupport::applicationFolders());
  const DesktopEntry* handler = DesktopSupport::handlerOfScheme(schemeOf(url), entries);
  if (handler == nullptr)
    reportFailure(schemeOf(url), "no application is registered for its scheme");
  else if (handler->isBusActivatable)
    openByBus(url, *handler);
  else
    openByProgram(url, *handler);
}

void LinuxWorkspace::openByBus(const URL& url, const DesktopEntry& handler) {
  const std::string& text = url.absoluteString();
  if (const auto problem = lengthProblem(text.size(), DesktopSupport::longestOpenURL, "a D-Bus message"))
    return reportFailure(schemeOf(url), *problem);
  const auto bus = SessionBus::connect();
  if (!bus)
    return reportFailure(schemeOf(url), bus.error().message);

  constexpr int usualTimeout = -1;
  g_dbus_connection_call(
      bus->connection(), handler.id.c_str(), DesktopSupport::applicationObjectPath(handler.id).c_str(),
      DesktopSupport::applicationInterface, "Open", DesktopSupport::openArguments({text}), nullptr,
      G_DBUS_CALL_FLAGS_NONE, usualTimeout, nullptr, &HandOver::complete, beginHandOver(schemeOf(url)));
}

void LinuxWorkspace::openByProgram(const URL& url, const DesktopEntry& handler) {
  std::string text = url.absoluteString();
  if (const auto problem = lengthProblem(text.size(), longestArgument, "one argument of a process"))
    return reportFailure(schemeOf(url), *problem);

  const DesktopSupport::ObjectHandle<GDesktopAppInfo> application(
      g_desktop_app_info_new_from_filename(handler.file.c_str()));
  if (!application)
    return reportFailure(schemeOf(url), "its handler " + handler.file.string() + " cannot be started");
  const std::unique_ptr<GList, DesktopSupport::ReleasedBy<g_list_free>> urls(g_list_append(nullptr, text.data()));
  ErrorHandle error;
  if (g_app_info_launch_uris(G_APP_INFO(application.get()), urls.get(), nullptr, Out(error)) == FALSE)
    reportFailure(schemeOf(url), error->message);
}

void LinuxWorkspace::finishHandOvers() {
  while (isHandingOver())
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
}

bool LinuxWorkspace::isHandingOver() const {
  const std::lock_guard lock(mutex);
  return handOversUnderWay_ > 0;
}

void LinuxWorkspace::reportFailure(std::string_view scheme, const std::string& reason) {
  log_.write("could not hand over a " + std::string(scheme) + ": URL: " + reason);
}

}  // namespace Platform::Linux
