#include "BrowserSessions/Companion/Companions.h"

#include <utility>

#include "DesktopSupport/Bus/BusDaemon.h"

namespace BrowserSessions {

namespace {

using DesktopSupport::BusAnswer;
using DesktopSupport::BusCall;
using DesktopSupport::SessionBus;
namespace BusErrorName = DesktopSupport::BusErrorName;

std::vector<BusCall> callsOfList(const SessionBus& bus, pid_t browser, std::chrono::milliseconds timeout) {
  const std::string prefix = companionNamePrefix(browser);
  std::vector<BusCall> calls;
  for (std::string& name : DesktopSupport::BusDaemon(bus, timeout).names())
    if (name.starts_with(prefix))
      calls.push_back({.method = {std::move(name), companionPath, companionInterface, "List"}});
  return calls;
}

std::string describe(const DesktopSupport::BusError& error) {
  if (error.name == BusErrorName::timeout)
    return "The browser's companion does not answer.";
  return "The browser's companion does not list the tabs: " + error.message;
}

// Whether the browser has ended or has closed the profile meanwhile.
bool isGone(const DesktopSupport::BusError& error) {
  return error.name == BusErrorName::serviceUnknown || error.name == BusErrorName::nameHasNoOwner ||
         error.name == BusErrorName::noReply;
}

void add(CompanionReading& reading, const BusAnswer& reply) {
  if (!reply && isGone(reply.error()))
    return;
  auto answer = reply ? companionAnswerIn(reply->get()) : std::unexpected(describe(reply.error()));
  if (answer)
    reading.answers.push_back(std::move(*answer));
  else
    reading.problems.push_back(std::move(answer.error()));
}

}  // namespace

CompanionReading askCompanions(pid_t browser, std::chrono::milliseconds timeout) {
  CompanionReading reading;
  const auto bus = SessionBus::connect();
  if (!bus)
    return reading;
  const auto calls = callsOfList(*bus, browser, timeout);
  if (calls.empty())
    return reading;
  for (const BusAnswer& reply : bus->callAll(calls, timeout))
    add(reading, reply);
  return reading;
}

BrowserWindow browserWindow(const CompanionWindow& window) {
  BrowserWindow shown;
  for (CompanionTab& tab : tabsOf(window)) {
    if (tab.isActive)
      shown.activeTab = shown.tabs.size();
    shown.tabs.push_back({.title = std::move(tab.title), .url = std::move(tab.url)});
  }
  return shown;
}

}  // namespace BrowserSessions
