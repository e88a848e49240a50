#include "ScriptableApps/Browsers/GoogleChrome.h"

#include <algorithm>
#include <array>

#include "BrowserSessions/Chromium/ChromiumUserData.h"
#include "BrowserSessions/Chromium/RunningChromium.h"
#include "DesktopSupport/System/DisplayableText.h"

namespace ScriptableApps {

namespace {

using AppleScript::ClassDescription;
using AppleScript::ElementsDescription;
using AppleScript::Object;
using AppleScript::PropertyDescription;
using AppleScript::Value;
using BrowserSessions::RunningChromium;

using Answer = AppleScript::Result<Value>;

constexpr const char* applicationName = "Google Chrome";

constexpr auto tabProperties = std::to_array<PropertyDescription>({
    {"title", tabTitle},
    {"URL", tabURL},
});

constexpr ClassDescription tabClass{.name = "tab", .plural = "tabs", .properties = tabProperties};

constexpr auto windowProperties = std::to_array<PropertyDescription>({
    {"name", windowTitle},
    {"title", windowTitle},
    {"active tab", windowActiveTab},
    {"active tab index", windowActiveTabIndex},
    // Private windows are never listed.
    {"mode", [](const Object&) -> Answer { return Value("normal"); }},
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

// The browsers that use one of the default user data folders, and those that were started with another one.
std::vector<RunningChromium> runningChromiums(const std::vector<pid_t>& processes) {
  auto running = BrowserSessions::runningChromiumBrowsers();
  for (const pid_t process : processes)
    if (auto browser = BrowserSessions::chromiumWithGivenUserData(DesktopSupport::ProcessInfo(process));
        browser && std::ranges::find(running, process, &RunningChromium::process) == running.end())
      running.push_back(std::move(*browser));
  return running;
}

// The titles of the pages that windows show: the windows' titles without the browser's name at the end. Windows of web
// applications and of the developer tools have no such name and are left out.
std::vector<std::string> pageTitles(const std::vector<std::string>& windowTitles, std::string_view browser) {
  const std::string end = " - " + std::string(browser);
  std::vector<std::string> titles;
  for (const std::string& title : windowTitles)
    if (title.ends_with(end))
      titles.push_back(DesktopSupport::shortened(title.substr(0, title.size() - end.size())));
  return titles;
}

}  // namespace

std::string_view GoogleChrome::name() const {
  return applicationName;
}

const AppleScript::Dictionary& GoogleChrome::dictionary() const {
  static constexpr AppleScript::Dictionary dictionary{.application = &rootClass, .classes = dictionaryClasses};
  return dictionary;
}

std::vector<RunningBrowser> GoogleChrome::runningBrowsers(const std::vector<pid_t>& processes) const {
  std::vector<RunningBrowser> browsers;
  for (const RunningChromium& running : runningChromiums(processes))
    browsers.push_back({running.process, [running](const std::vector<std::string>& titles) {
                          return BrowserSessions::chromiumUserDataSession(running.userData, running.process,
                                                                          pageTitles(titles, running.browser));
                        }});
  return browsers;
}

}  // namespace ScriptableApps
