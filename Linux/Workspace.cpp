#include "Linux/Workspace.h"

#include <cstddef>
#include <memory>
#include <optional>

#include "DesktopSupport/Bus/ApplicationBus.h"
#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/DesktopEntries/DesktopEntries.h"
#include "DesktopSupport/DesktopEntries/SchemeHandler.h"
#include "DesktopSupport/GIO/GIO.h"

namespace Linux {

namespace {

using DesktopSupport::DesktopEntry;
using DesktopSupport::SessionBus;

/// The most bytes that one argument of a process can hold, without its terminator (MAX_ARG_STRLEN).
constexpr std::size_t longestArgument = 32UL * 4096 - 1;

std::string_view schemeOf(const Platform::URL& url) {
  return url.scheme().value_or("");
}

/// Why a text of this length does not fit into the carrier; `nullopt` if it does.
std::optional<std::string> lengthProblem(std::size_t length, std::size_t limit, const char* carrier) {
  if (length <= limit)
    return std::nullopt;
  return "the URL is " + std::to_string(length) + " bytes long, and " + carrier + " holds at most " +
         std::to_string(limit);
}

}  // namespace

void Workspace::open(Platform::URL url) {
  DesktopSupport::DesktopEntries entries(DesktopSupport::applicationFolders());
  const DesktopEntry* handler = DesktopSupport::handlerOfScheme(schemeOf(url), entries);
  if (handler == nullptr)
    reportFailure(schemeOf(url), "no application is registered for its scheme");
  else if (handler->isBusActivatable && DesktopSupport::isApplicationName(handler->id))
    openByBus(std::move(url), *handler);
  else
    openByProgram(std::move(url), *handler);
}

void Workspace::openByBus(Platform::URL url, const DesktopEntry& handler) {
  if (const auto problem =
          lengthProblem(url.absoluteString().size(), DesktopSupport::longestOpenURL, "a D-Bus message"))
    return reportFailure(schemeOf(url), *problem);
  const auto bus = SessionBus::connect();
  if (!bus)
    return reportFailure(schemeOf(url), bus.error().message);
  std::string scheme(schemeOf(url));
  handOvers_.add(*bus, handler.id, std::move(scheme), std::move(url).absoluteString());
}

void Workspace::openByProgram(Platform::URL url, const DesktopEntry& handler) {
  if (const auto problem = lengthProblem(url.absoluteString().size(), longestArgument, "one argument of a process"))
    return reportFailure(schemeOf(url), *problem);

  const std::string scheme(schemeOf(url));
  if (const auto started = DesktopSupport::startWithURL(handler.file, std::move(url).absoluteString()); !started)
    reportFailure(scheme, started.error());
}

void Workspace::reportFailure(std::string_view scheme, const std::string& reason) {
  log_.write("could not hand over a " + std::string(scheme) + ": URL: " + reason);
}

}  // namespace Linux
