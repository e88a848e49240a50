// The plug-in of Examples/RecentFiles on a real desktop, with a host that keeps its configuration and a user who edits
// it. It is built outside this tree with the installed package. The environment variable RECENT_FILES_PROGRAM names it.

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include "DeskloomSDK/Host/DeskloomAPI.h"
#include "DeskloomSDK/Resources/Resource.h"
#include "Linux/Services.h"
#include "Platform/Text/PercentEncoding.h"
#include "Tests/Support/BusNames.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/HostProcess.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/Support/TestDesktop.h"
#include "Tests/Support/TestInput.h"

using testing::ElementsAre;
using testing::SizeIs;
using TestSupport::ChildProcess;

namespace {

constexpr const char* pluginName = "com.quillary.RecentFiles";
constexpr const char* action = "7F3A";

/// The names of a command's resources.
std::vector<std::string> names(const std::string& command) {
  constexpr std::string_view prefix = "deskloom://gleanery/";
  EXPECT_TRUE(command.starts_with(prefix)) << command;
  const auto resources =
      DeskloomSDK::decodeResources(Platform::percentDecoded(std::string_view(command).substr(prefix.size())));
  std::vector<std::string> names;
  for (const auto& resource : resources.value())
    names.push_back(resource.name());
  return names;
}

class ExamplePluginTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_NE(program_, nullptr) << "RECENT_FILES_PROGRAM names no program";
    services_.bundle = Linux::Bundle(std::filesystem::canonical(program_).parent_path());
    writeList();
  }

  [[nodiscard]] ChildProcess launch(const std::string& what) const {
    return ChildProcess({program_, "deskloomplugin://" + what}, {.environment = {{"XDG_DATA_HOME", folder.path()}}});
  }

  /// Runs the action in a process of its own. Yields the names of the resources that the host receives.
  std::vector<std::string> run() {
    EXPECT_EQ(launch(std::string("run/") + action).wait(), 0);
    return names(host.nextLine());
  }

  /// Opens one of the plug-in's windows, does there what a user does, and waits until the process has ended.
  void use(const std::string& what, const std::string& title, const std::vector<std::uint32_t>& keysyms) {
    ChildProcess plugin = launch(what);
    const auto window = desktop.waitForTitle(title);
    ASSERT_TRUE(window);
    desktop.watch(*window);
    ASSERT_TRUE(desktop.waitUntil([&] { return desktop.isReady(*window); }));
    for (const std::uint32_t keysym : keysyms)
      input.press(keysym);
    EXPECT_EQ(plugin.wait(), 0);
    EXPECT_TRUE(desktop.waitUntil([this] { return desktop.clients().empty(); }));
  }

  TestSupport::TemporaryFolder folder;
  TestSupport::TestDesktop desktop;
  TestSupport::TestInput input{desktop};
  TestSupport::HostProcess host{DESKLOOM_HOST_PROGRAM};
  DeskloomSDK::DeskloomAPI api;

 private:
  /// Writes a list of thirty files. The last of them was used last.
  void writeList() const {
    std::string list = R"(<xbel version="1.0" xmlns:mime="http://www.freedesktop.org/standards/shared-mime-info">)";
    for (int number = 10; number < 40; ++number) {
      const std::string name = "file" + std::to_string(number);
      const std::string time = "2024-01-01T00:00:" + std::to_string(number) + "Z";
      list += "<bookmark href=\"file://" + folder.write(name, "").native() + "\" added=\"" + time + "\" modified=\"" +
              time + "\" visited=\"" + time +
              "\"><info><metadata owner=\"http://freedesktop.org\"><mime:mime-type type=\"text/plain\"/>"
              "</metadata></info></bookmark>";
    }
    folder.write("recently-used.xbel", list + "</xbel>");
  }

  const char* program_ = std::getenv("RECENT_FILES_PROGRAM");
  Linux::Services services_;
};

TEST_F(ExamplePluginTest, SendsTheNewestFilesThatAreThere) {
  std::filesystem::remove(folder.path() / "file38");
  EXPECT_THAT(run(), ElementsAre("file39", "file37", "file36", "file35", "file34", "file33", "file32", "file31",
                                 "file30", "file29"));
}

TEST_F(ExamplePluginTest, RunsAsTheUserHasEditedItInAProcessBefore) {
  use(std::string("edit/") + action, "Recent Files", {XKB_KEY_3, XKB_KEY_Return, XKB_KEY_Up, XKB_KEY_Escape});
  EXPECT_EQ(api.getConfig(action), R"({"count":4,"kind":"all"})");
  EXPECT_THAT(run(), ElementsAre("file39", "file38", "file37", "file36"));
  EXPECT_EQ(api.getConfig(action), R"({"count":4,"kind":"all"})");
}

TEST_F(ExamplePluginTest, TakesWhatIsStillBeingTypedWhenItsWindowCloses) {
  use(std::string("edit/") + action, "Recent Files", {XKB_KEY_2, XKB_KEY_Escape});
  EXPECT_THAT(run(), ElementsAre("file39", "file38"));
}

TEST_F(ExamplePluginTest, BeginsANewActionAsThePluginIsConfigured) {
  use("configure", "Recent Files Settings", {XKB_KEY_1, XKB_KEY_Escape});
  EXPECT_EQ(api.getGlobalConfig(), R"({"countOfNewActions":1,"leavesOutMissingFiles":true})");
  EXPECT_THAT(run(), ElementsAre("file39"));
}

TEST_F(ExamplePluginTest, IsStartedByTheBus) {
  TestSupport::setActivationEnvironment("XDG_DATA_HOME", folder.path());
  EXPECT_TRUE(TestSupport::openURL(pluginName, std::string("deskloomplugin://run/") + action));
  EXPECT_THAT(names(host.nextLine()), SizeIs(10));
  TestSupport::awaitNoOwner(pluginName);
}

TEST_F(ExamplePluginTest, SendsAnEmptyListIfTheDesktopHasNoList) {
  std::filesystem::remove(folder.path() / "recently-used.xbel");
  EXPECT_THAT(run(), SizeIs(0));
}

}  // namespace
