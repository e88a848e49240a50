#include "ScriptableApps/Browsers/Safari.h"

#include <algorithm>
#include <array>
#include <utility>

#include "BrowserSessions/Firefox/FirefoxSession.h"
#include "BrowserSessions/Firefox/RunningFirefox.h"
#include "BrowserSessions/GNOMEWeb/GNOMEWebSession.h"
#include "BrowserSessions/GNOMEWeb/RunningGNOMEWeb.h"

namespace ScriptableApps {

namespace {

using AppleScript::ClassDescription;
using AppleScript::ElementsDescription;
using AppleScript::Object;
using AppleScript::PropertyDescription;
using AppleScript::Value;
using BrowserSessions::RunningFirefox;

using Answer = AppleScript::Result<Value>;

constexpr const char* applicationName = "Safari";

constexpr auto tabProperties = std::to_array<PropertyDescription>({
    {"name", tabTitle},
    {"URL", tabURL},
});

constexpr ClassDescription tabClass{.name = "tab", .plural = "tabs", .properties = tabProperties};

constexpr auto windowProperties = std::to_array<PropertyDescription>({
    {"name", windowTitle},
    {"current tab", windowActiveTab},
});

constexpr auto windowElements = std::to_array<ElementsDescription>({{&tabClass, countTabs, tabAt}});

constexpr ClassDescription windowClass{
    .name = "window", .plural = "windows", .properties = windowProperties, .elements = windowElements};

constexpr auto rootProperties = std::to_array<PropertyDescription>({
    {"name", [](const Object&) -> Answer { return Value(applicationName); }},
});

constexpr auto rootElements = std::to_array<ElementsDescription>({{&windowClass, countWindows, windowAt}});

constexpr ClassDescription rootClass{
    .name = "application", .plural = "applications", .properties = rootProperties, .elements = rootElements};

constexpr std::array<const ClassDescription*, 3> dictionaryClasses = {&rootClass, &windowClass, &tabClass};

// The Firefoxes that use one of the profiles in their list, and those that were started with another one.
std::vector<RunningFirefox> allRunningFirefoxes(const std::vector<pid_t>& processes) {
  auto running = BrowserSessions::runningFirefoxes();
  for (const pid_t process : processes)
    if (auto profile = BrowserSessions::firefoxProfileGivenTo(DesktopSupport::ProcessInfo(process));
        profile && std::ranges::find(running, *profile, &RunningFirefox::profile) == running.end())
      running.push_back({std::move(*profile), process});
  return running;
}

}  // namespace

std::string_view Safari::name() const {
  return applicationName;
}

const AppleScript::Dictionary& Safari::dictionary() const {
  static constexpr AppleScript::Dictionary dictionary{.application = &rootClass, .classes = dictionaryClasses};
  return dictionary;
}

std::vector<RunningBrowser> Safari::runningBrowsers(const std::vector<pid_t>& processes) const {
  std::vector<RunningBrowser> browsers;
  if (const auto web = BrowserSessions::runningGNOMEWeb())
    browsers.push_back({web->process, [profile = web->profile](const std::vector<std::string>& titles) {
                          return BrowserSessions::gnomeWebSession(profile, titles);
                        }});
  for (const RunningFirefox& firefox : allRunningFirefoxes(processes))
    browsers.push_back({firefox.process, [firefox](const std::vector<std::string>& /*titles*/) {
                          return BrowserSessions::firefoxSession(firefox.profile, firefox.process);
                        }});
  return browsers;
}

}  // namespace ScriptableApps
