// A plug-in that is started without a launch URL, on a real desktop with a user who reads and dismisses its alerts.

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include "Tests/Support/BusNames.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/HostProcess.h"
#include "Tests/Support/ScreenReader.h"
#include "Tests/Support/TestDesktop.h"
#include "Tests/Support/TestInput.h"

using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;
using TestSupport::AccessibleItem;
using TestSupport::ChildProcess;
using TestSupport::HostProcess;
using TestSupport::ScreenReader;

namespace {

constexpr const char* pluginName = "com.quillary.Gleanery";

class LaunchByHandTest : public testing::Test {
 protected:
  /// Starts the plug-in as a click on its icon would.
  static ChildProcess launch(ChildProcess::Options options = {}) {
    options.environment.insert(ScreenReader::accessibility);
    return ChildProcess({GLEANERY_PROGRAM}, options);
  }

  /// Waits until the alert is on screen and has the keyboard focus.
  xcb_window_t awaitAlert() {
    const auto alert = desktop.waitForTitle("Gleanery");
    if (!alert) {
      ADD_FAILURE() << "there is no alert";
      return XCB_WINDOW_NONE;
    }
    desktop.watch(*alert);
    EXPECT_TRUE(desktop.waitUntil([&] { return desktop.isReady(*alert); }));
    return *alert;
  }

  /// The texts of the alert from top to bottom, and the titles of its buttons.
  std::vector<std::string> textsOfAlert(const ChildProcess& plugin) {
    std::vector<std::string> texts;
    const auto window = reader.awaitWindow(plugin.pid());
    for (const AccessibleItem& item : window ? window->items() : std::vector<AccessibleItem>())
      if (item.role == "label")
        texts.push_back(item.name);
    return texts;
  }

  /// Waits until the plug-in has ended and its windows are gone, since the next ones may get the same ids.
  void expectEnd(ChildProcess& plugin) {
    EXPECT_EQ(plugin.wait(), 0);
    EXPECT_TRUE(desktop.waitUntil([this] { return desktop.clients().empty(); }));
  }

  void pressReturn() { input.press(XKB_KEY_Return); }

  TestSupport::TestDesktop desktop;
  TestSupport::TestInput input{desktop};
  ScreenReader reader;
};

TEST_F(LaunchByHandTest, AsksTheHostToInstallItIfItIsNotInstalledAndShowsNothing) {
  HostProcess host(DESKLOOM_HOST_PROGRAM);
  EXPECT_EQ(launch().wait(), 0);
  EXPECT_THAT(host.linesSoFar(), ElementsAre("install plugin"));
  EXPECT_THAT(desktop.clients(), IsEmpty());
}

TEST_F(LaunchByHandTest, SaysThatTheHostMustRunItIfItIsInstalled) {
  HostProcess host(DESKLOOM_HOST_PROGRAM, {"--installed"});
  ChildProcess plugin = launch();
  awaitAlert();
  EXPECT_THAT(textsOfAlert(plugin), ElementsAre("This plugin must be run by Deskloom app.", "OK"));
  pressReturn();
  expectEnd(plugin);
  EXPECT_THAT(host.linesSoFar(), IsEmpty());
}

TEST_F(LaunchByHandTest, AlertsAreDismissedByReturnEscapeAndTheMouse) {
  HostProcess host(DESKLOOM_HOST_PROGRAM, {"--installed"});
  const auto clickOK = [this](xcb_window_t alert) {
    constexpr int fromBottomToButton = 40;
    const auto place = desktop.geometry(alert).value();
    input.click(place.x + place.width / 2, place.y + place.height - fromBottomToButton);
  };
  const std::vector<std::function<void(xcb_window_t)>> ways = {
      [this](xcb_window_t) { pressReturn(); }, [this](xcb_window_t) { input.press(XKB_KEY_Escape); },
      [this](xcb_window_t) { input.press(XKB_KEY_space); }, clickOK};
  for (const auto& dismiss : ways) {
    ChildProcess plugin = launch();
    dismiss(awaitAlert());
    expectEnd(plugin);
  }
}

TEST_F(LaunchByHandTest, AlertsCanBePressedByAScreenReader) {
  HostProcess host(DESKLOOM_HOST_PROGRAM, {"--installed"});
  ChildProcess plugin = launch();
  const auto alert = reader.awaitWindow(plugin.pid());
  ASSERT_TRUE(alert);
  EXPECT_EQ(alert->role(), "alert dialog");
  EXPECT_TRUE(alert->press("OK"));
  expectEnd(plugin);
}

TEST_F(LaunchByHandTest, AnAlertsTextsCanBeSelected) {
  HostProcess host(DESKLOOM_HOST_PROGRAM, {"--refuse-installation"});
  ChildProcess plugin = launch();
  awaitAlert();
  for (const std::string& text : textsOfAlert(plugin))
    EXPECT_EQ(reader.awaitWindow(plugin.pid())->select(text), text != "OK") << text;
  pressReturn();
  expectEnd(plugin);
}

TEST_F(LaunchByHandTest, AlertsAreAboveOtherWindows) {
  HostProcess host(DESKLOOM_HOST_PROGRAM, {"--installed"});
  ChildProcess plugin = launch();
  const auto alert = awaitAlert();
  EXPECT_TRUE(desktop.waitUntil([&] {
    return testing::Value(desktop.numbers(alert, "_NET_WM_STATE"), Contains(desktop.atom("_NET_WM_STATE_ABOVE")));
  }));
  pressReturn();
  expectEnd(plugin);
}

TEST_F(LaunchByHandTest, SaysThatTheScriptFailedWithoutAHost) {
  ChildProcess plugin = launch();
  awaitAlert();
  EXPECT_THAT(textsOfAlert(plugin), ElementsAre("Could not run script", "OK"));
  pressReturn();
  expectEnd(plugin);
}

TEST_F(LaunchByHandTest, SaysThatItCannotBeInstalledIfTheHostRefusesExactlyOnce) {
  HostProcess host(DESKLOOM_HOST_PROGRAM, {"--refuse-installation"});
  ChildProcess plugin = launch();
  awaitAlert();
  EXPECT_THAT(
      textsOfAlert(plugin),
      ElementsAre("Plugin cannot be installed.",
                  "Please make sure you have the latest version of Deskloom installed. If problem occurs again, "
                  "go to Preferences -> Plugins and install the plugin there.",
                  "OK"));
  pressReturn();
  expectEnd(plugin);  // a second alert would wait for its dismissal
}

TEST_F(LaunchByHandTest, ALaunchURLThatComesMeanwhileIsHandledAndEndsTheAlert) {
  HostProcess host(DESKLOOM_HOST_PROGRAM, {"--installed"});
  ChildProcess plugin = launch();
  awaitAlert();
  EXPECT_TRUE(TestSupport::openURL(pluginName, "deskloomplugin://runCommand/nobody"));
  EXPECT_EQ(host.nextLine(), "deskloom://gleanery/%5B%5D");
  expectEnd(plugin);
}

TEST_F(LaunchByHandTest, WritesTheAlertIfThereIsNoDisplayAndGoesOn) {
  HostProcess host(DESKLOOM_HOST_PROGRAM, {"--refuse-installation"});
  ChildProcess plugin = launch({.environment = {{"DISPLAY", ""}}, .captureErrors = true});
  const std::string errors = plugin.readAll();
  EXPECT_THAT(errors, HasSubstr("Plugin cannot be installed."));
  EXPECT_THAT(errors, HasSubstr("Please make sure you have the latest version of Deskloom installed."));
  EXPECT_THAT(errors, HasSubstr("no display can be opened"));
  expectEnd(plugin);
}

TEST_F(LaunchByHandTest, SpeaksTheUsersLanguage) {
  HostProcess host(DESKLOOM_HOST_PROGRAM, {"--installed"});
  ChildProcess plugin = launch({.environment = {{"LANGUAGE", "de"}}});
  awaitAlert();
  EXPECT_THAT(textsOfAlert(plugin), ElementsAre(HasSubstr("muss"), "OK"));
  pressReturn();
  expectEnd(plugin);
}

TEST_F(LaunchByHandTest, CopesWithAThemeThatIsBroken) {
  HostProcess host(DESKLOOM_HOST_PROGRAM, {"--installed"});
  ChildProcess plugin = launch({.environment = {{"GTK_THEME", "no-such-theme"}}});
  awaitAlert();
  EXPECT_THAT(textsOfAlert(plugin), ElementsAre("This plugin must be run by Deskloom app.", "OK"));
  pressReturn();
  expectEnd(plugin);
}

}  // namespace
