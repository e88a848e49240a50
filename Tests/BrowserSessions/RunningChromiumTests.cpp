#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "BrowserSessions/Chromium/ChromiumBrowser.h"
#include "BrowserSessions/Chromium/RunningChromium.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

namespace BrowserSessions {
namespace {

using std::filesystem::path;

class RunningChromiumBrowsers : public testing::Test {
 protected:
  // Makes a process with this program and these further arguments, each with a '|' at its end.
  void process(int number, const path& program, std::string arguments = "") const {
    std::ranges::replace(arguments, '|', '\0');
    const path folder = path("proc") / std::to_string(number);
    folder_.write(folder / "cmdline", program.string() + '\0' + arguments);
    std::filesystem::create_symlink(program, folder_.path() / folder / "exe");
  }

  void sandboxed(int number, int inside, const std::string& application) const {
    const path folder = path("proc") / std::to_string(number);
    folder_.write(folder / "status", "Name:\tchrome\nNSpid:\t" + std::to_string(number) + "\t" +
                                         std::to_string(inside) + "\nNSpgid:\t1\t1\n");
    folder_.write(folder / "root/.flatpak-info", "[Application]\nname=" + application + "\n");
  }

  // Makes a user data folder with a lock that names this holder, and returns the folder.
  [[nodiscard]] path lock(const path& userData, const std::string& holder) const {
    const path folder = folder_.path() / userData;
    std::filesystem::create_directories(folder);
    std::filesystem::remove(folder / "SingletonLock");
    std::filesystem::create_symlink(holder, folder / "SingletonLock");
    return folder;
  }

  [[nodiscard]] std::vector<RunningChromium> running() const {
    return runningChromiumBrowsers(
        {.home = folder_.path(), .configuration = folder_.path() / "configuration", .processes = processes()});
  }

  [[nodiscard]] std::optional<RunningChromium> given(int number) const {
    return chromiumWithGivenUserData(DesktopSupport::ProcessInfo(number, processes()));
  }

  [[nodiscard]] path processes() const { return folder_.path() / "proc"; }

  TestSupport::TemporaryFolder folder_;
};

using Running = std::vector<RunningChromium>;

TEST_F(RunningChromiumBrowsers, AreNoneWithoutALock) {
  process(4711, "/opt/google/chrome/chrome");
  std::filesystem::create_directories(folder_.path() / "configuration/google-chrome/Default");
  EXPECT_EQ(running(), Running());
}

TEST_F(RunningChromiumBrowsers, AreThoseThatHoldTheirLock) {
  process(4711, "/opt/google/chrome/chrome");
  const path userData = lock("configuration/google-chrome", "my-host-4711");
  EXPECT_EQ(running(), (Running{{"Google Chrome", 4711, userData}}));
}

TEST_F(RunningChromiumBrowsers, AreFoundOfEveryMakeAtOnce) {
  const std::vector<std::pair<std::string, path>> programs = {
      {"google-chrome-beta", "/opt/google/chrome-beta/chrome"},
      {"chromium", "/usr/lib/chromium/chromium"},
      {"BraveSoftware/Brave-Browser", "/opt/brave.com/brave/brave"},
      {"microsoft-edge", "/opt/microsoft/msedge/msedge"},
      {"vivaldi", "/opt/vivaldi/vivaldi-bin"},
      {"opera", "/usr/lib/x86_64-linux-gnu/opera/opera"}};
  int number = 100;
  std::vector<std::string> expected;
  for (const auto& [folder, program] : programs) {
    process(++number, program);
    static_cast<void>(lock(path("configuration") / folder, "host-" + std::to_string(number)));
  }
  std::vector<std::string> found;
  for (const auto& [browser, holder, userData] : running())
    found.push_back(std::string(browser) + " " + std::to_string(holder));
  EXPECT_EQ(found, (std::vector<std::string>{"Google Chrome 101", "Chromium 102", "Brave 103", "Microsoft Edge 104",
                                             "Vivaldi 105", "Opera 106"}));
}

TEST_F(RunningChromiumBrowsers, AreFoundInSnaps) {
  process(4711, "/snap/chromium/3000/usr/lib/chromium-browser/chrome");
  const path userData = lock("snap/chromium/common/chromium", "host-4711");
  EXPECT_EQ(running(), (Running{{"Chromium", 4711, userData}}));
}

TEST_F(RunningChromiumBrowsers, AreFoundInFlatpaksByTheirNumberInside) {
  process(4709, "/app/bin/bwrap");
  process(4710, "/app/extra/chrome", "--type=zygote|");
  process(4711, "/app/extra/chrome");
  process(4712, "/app/extra/chrome");
  sandboxed(4709, 2, "com.google.Chrome");
  sandboxed(4710, 2, "com.google.Chrome");
  sandboxed(4711, 2, "com.google.Chrome");
  sandboxed(4712, 2, "org.example.Other");
  const path userData = lock(".var/app/com.google.Chrome/config/google-chrome", "host-2");
  EXPECT_EQ(running(), (Running{{"Google Chrome", 4711, userData}}));
}

TEST_F(RunningChromiumBrowsers, AreNotThoseOfAFlatpakOutsideOfIt) {
  process(2, "/opt/google/chrome/chrome");
  static_cast<void>(lock(".var/app/com.google.Chrome/config/google-chrome", "host-2"));
  EXPECT_EQ(running(), Running());
}

TEST_F(RunningChromiumBrowsers, DoNotIncludeWhatOnlyLeftItsLockBehind) {
  static_cast<void>(lock("configuration/google-chrome", "host-4711"));
  EXPECT_EQ(running(), Running()) << "no such process";
  process(4711, "/usr/bin/gedit");
  EXPECT_EQ(running(), Running()) << "another program";
}

TEST_F(RunningChromiumBrowsers, DoNotIncludeTheirHelpers) {
  process(4711, "/opt/google/chrome/chrome", "--type=renderer|");
  static_cast<void>(lock("configuration/google-chrome", "host-4711"));
  EXPECT_EQ(running(), Running());
}

TEST_F(RunningChromiumBrowsers, NeedALockThatNamesAProcess) {
  process(4711, "/opt/google/chrome/chrome");
  for (const char* holder : {"4711", "host", "host-", "host-x", "host-4711x", "host-+4711", "host--1", "host-0",
                             "host-99999999999999999999"}) {
    static_cast<void>(lock("configuration/google-chrome", holder));
    EXPECT_EQ(running(), Running()) << holder;
  }
  std::filesystem::remove(folder_.path() / "configuration/google-chrome/SingletonLock");
  folder_.write("configuration/google-chrome/SingletonLock", "host-4711");
  EXPECT_EQ(running(), Running()) << "no link";
}

TEST_F(RunningChromiumBrowsers, AreToldByTheirArgumentsWhereTheProgramCannotBeSeen) {
  folder_.write("proc/4711/cmdline", std::string("/opt/vivaldi/vivaldi-bin\0", 25));
  const path userData = lock("configuration/vivaldi", "host-4711");
  EXPECT_EQ(running(), (Running{{"Vivaldi", 4711, userData}}));
}

TEST_F(RunningChromiumBrowsers, MayHaveTheirUserDataWhereTheyAreTold) {
  const path userData = lock("elsewhere", "host-4711");
  process(4711, "/usr/lib/chromium/chromium",
          "--user-data-dir=/first|--no-first-run|--user-data-dir=" + userData.string() + "|");
  EXPECT_EQ(running(), Running());
  EXPECT_EQ(given(4711), (RunningChromium{"Chromium", 4711, userData}));
}

// This is how a running browser shows its command line.
TEST_F(RunningChromiumBrowsers, MayShowTheirArgumentsAsOne) {
  const path userData = lock("else where", "host-4711");
  process(4711, "/usr/lib/chromium/chromium");
  folder_.write("proc/4711/cmdline", std::string("/usr/lib/chromium/chromium --first --user-data-dir=") +
                                         userData.string() + " https://example.com/ --last" + '\0');
  EXPECT_EQ(given(4711), (RunningChromium{"Chromium", 4711, userData}));

  static_cast<void>(lock("configuration/chromium", "host-4712"));
  process(4712, "/usr/lib/chromium/chromium");
  folder_.write("proc/4712/cmdline", std::string("/usr/lib/chromium/chromium --type=renderer --more") + '\0');
  EXPECT_EQ(running(), Running()) << "a helper";
}

TEST_F(RunningChromiumBrowsers, HaveNoGivenUserDataWithoutTheOptionOrTheLock) {
  const path userData = lock("elsewhere", "host-1");
  process(4711, "/usr/lib/chromium/chromium", "--user-data-dir=" + userData.string() + "|");
  process(4712, "/usr/lib/chromium/chromium", "--user-data-dir=relative|");
  process(4713, "/usr/lib/chromium/chromium");
  process(1, "/usr/bin/other", "--user-data-dir=" + userData.string() + "|");
  for (const int number : {4711, 4712, 4713, 4714, 1})
    EXPECT_EQ(given(number), std::nullopt) << number;
  EXPECT_EQ(chromiumWithGivenUserData(DesktopSupport::ProcessInfo(std::nullopt)), std::nullopt);
}

TEST(ChromiumPlaces, FollowTheEnvironment) {
  const TestSupport::EnvironmentVariable own("CHROME_CONFIG_HOME", std::nullopt);
  const TestSupport::EnvironmentVariable configuration("XDG_CONFIG_HOME", std::nullopt);
  EXPECT_EQ(chromiumPlaces().configuration, chromiumPlaces().home / ".config");
  const TestSupport::EnvironmentVariable everybodys("XDG_CONFIG_HOME", "/everybodys");
  EXPECT_EQ(chromiumPlaces().configuration, "/everybodys");
  const TestSupport::EnvironmentVariable browsers("CHROME_CONFIG_HOME", "/browsers");
  EXPECT_EQ(chromiumPlaces().configuration, "/browsers");
  EXPECT_EQ(chromiumPlaces().processes, "/proc");
}

TEST(ChromiumPlaces, AreTheUsualOnesIfTheEnvironmentNamesARelativeFolder) {
  const TestSupport::EnvironmentVariable own("CHROME_CONFIG_HOME", "relative/folder");
  const TestSupport::EnvironmentVariable configuration("XDG_CONFIG_HOME", "relative/folder");
  EXPECT_EQ(chromiumPlaces().configuration, chromiumPlaces().home / ".config");
}

TEST(ChromiumBrowsers, HaveNoUserDataFolderInCommon) {
  std::set<path> folders;
  std::size_t count = 0;
  for (const ChromiumBrowser& browser : chromiumBrowsers()) {
    EXPECT_FALSE(browser.programs.empty()) << browser.name;
    for (const std::string_view folder : browser.configurationFolders)
      count += folders.insert(path("configuration") / folder).second ? 1 : 100;
    for (const auto& [application, folder] : browser.flatpakFolders)
      count += folders.insert(path(application) / folder).second ? 1 : 100;
    for (const std::string_view folder : browser.snapFolders)
      count += folders.insert(folder).second ? 1 : 100;
  }
  EXPECT_EQ(folders.size(), count);
}

}  // namespace
}  // namespace BrowserSessions
