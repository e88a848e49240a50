#include <string>

#include <gtest/gtest.h>

#include "Tests/DesktopSupport/WindowMatcherTest.h"

namespace {

using namespace std::string_literals;
using DesktopSupport::Window;
using TestSupport::WindowMatcherTest;

TEST_F(WindowMatcherTest, MatchesNothingOnAnEmptyDesktop) {
  EXPECT_EQ(match(windowOf("a", "A")), "none");
  EXPECT_EQ(match({}), "none");
}

TEST_F(WindowMatcherTest, TrustsTheApplicationIDBeforeTheClass) {
  addEntry("org.gnome.Epiphany");
  addEntry("epiphany", "StartupWMClass=epiphany");
  Window window = windowOf("epiphany", "Epiphany");
  window.applicationID = "org.gnome.Epiphany";
  EXPECT_EQ(match(window), "org.gnome.Epiphany");
  EXPECT_EQ(filesRead_, 1U) << "nothing but the entry needed";
}

TEST_F(WindowMatcherTest, ReadsOneEntryIfThatHasTheNameOfTheInstanceAndClaimsIt) {
  addEntry("chromium", "StartupWMClass=chromium");
  addEntry("a", "StartupWMClass=chromium");
  EXPECT_EQ(match(windowOf("chromium", "Chromium")), "chromium");
  EXPECT_EQ(filesRead_, 1U);
}

TEST_F(WindowMatcherTest, PrefersTheEntryThatNamesTheInstance) {
  addEntry("browser", "StartupWMClass=Browser");
  addEntry("mail", "StartupWMClass=mail-app");
  EXPECT_EQ(match(windowOf("mail-app", "Browser")), "mail");
  EXPECT_EQ(match(windowOf("window", "Browser")), "browser");
}

TEST_F(WindowMatcherTest, ComparesTheCaseOfClassesFirst) {
  addEntry("lower", "StartupWMClass=tool");
  addEntry("upper", "StartupWMClass=Tool");
  EXPECT_EQ(match(windowOf("x", "Tool")), "upper");
  EXPECT_EQ(match(windowOf("x", "tool")), "lower");
  EXPECT_EQ(match(windowOf("x", "TOOL")), "lower") << "either, so the lesser id";
}

TEST_F(WindowMatcherTest, PrefersWhatAnEntryNamesToHowItIsCalled) {
  addEntry("firefox");
  addEntry("firefox-developer", "StartupWMClass=firefox");
  EXPECT_EQ(match(windowOf("firefox", "firefox")), "firefox-developer");
}

TEST_F(WindowMatcherTest, FindsAnEntryCalledLikeInstanceOrClass) {
  addEntry("by-instance");
  addEntry("ByClass");
  EXPECT_EQ(match(windowOf("by-instance", "ByClass")), "by-instance");
  EXPECT_EQ(match(windowOf("x", "ByClass")), "ByClass");
}

TEST_F(WindowMatcherTest, FindsAnEntryCalledLikeTheClassInAFileName) {
  addEntry("my-great-tool");
  EXPECT_EQ(match(windowOf("x", "My Great Tool")), "my-great-tool");
}

TEST_F(WindowMatcherTest, FindsAnEntryWithAVendorInFront) {
  addEntry("gnome-screenshot");
  addEntry("debian-thing");
  EXPECT_EQ(match(windowOf("screenshot", "Screenshot")), "gnome-screenshot");
  EXPECT_EQ(match(windowOf("x", "Thing")), "debian-thing");
}

TEST_F(WindowMatcherTest, FindsAnEntryCalledLikeTheEndOfTheClass) {
  addEntry("krita");
  EXPECT_EQ(match(windowOf("org.kde.krita", "org.kde.krita")), "krita");
}

TEST_F(WindowMatcherTest, PassesOverHiddenAndBrokenEntries) {
  addEntry("tool", "Hidden=true\nStartupWMClass=tool");
  folder_.write("applications/gnome-tool.desktop", "rubbish");
  addEntry("debian-tool");
  EXPECT_EQ(match(windowOf("tool", "Tool")), "debian-tool");
}

TEST_F(WindowMatcherTest, BelievesTheHintInTheEnvironment) {
  addEntry("hinted");
  const auto file = (folder_.path() / "applications/hinted.desktop").string();
  setProcessFile("environ", "BAMF_DESKTOP_FILE_HINT=" + file + '\0');
  EXPECT_EQ(match(windowOf("x", "X")), "hinted");
}

TEST_F(WindowMatcherTest, BelievesTheLauncherAboutTheProcessItLaunchedOnly) {
  addEntry("launched");
  const auto file = (folder_.path() / "applications/launched.desktop").string();
  const std::string variable = "GIO_LAUNCHED_DESKTOP_FILE=" + file + '\0';
  setProcessFile("environ", variable + "GIO_LAUNCHED_DESKTOP_FILE_PID=7\0"s);
  EXPECT_EQ(match(windowOf("x", "X")), "launched");
  setProcessFile("environ", variable + "GIO_LAUNCHED_DESKTOP_FILE_PID=6\0"s);
  EXPECT_EQ(match(windowOf("x", "X")), "none");
  setProcessFile("environ", variable);
  EXPECT_EQ(match(windowOf("x", "X")), "none");
}

TEST_F(WindowMatcherTest, KnowsTheUnitThatWasMadeForTheApplication) {
  addEntry("org.example.Tool");
  setProcessFile("cgroup", "0::/app.slice/app-gnome-org.example.Tool-7.scope\n");
  EXPECT_EQ(match(windowOf("x", "X")), "org.example.Tool");
  setProcessFile("cgroup", "0::/app.slice/app-org.example.Tool-c0ffee.scope\n");
  EXPECT_EQ(match(windowOf("x", "X")), "org.example.Tool");
}

TEST_F(WindowMatcherTest, DoesNotTakeWhatATerminalStartedForTheTerminal) {
  addEntry("org.example.Terminal");
  setProcessFile("cgroup", "0::/app.slice/app-gnome-org.example.Terminal-6.scope\n");
  EXPECT_EQ(match(windowOf("x", "X")), "none");
}

TEST_F(WindowMatcherTest, FindsTheEntryThatStartsTheProgram) {
  addEntry("clock", "Exec=/usr/games/bigclock -digital %U");
  setExecutable("/opt/clock/bigclock");
  setProcessFile("cmdline", "bigclock\0-digital\0"s);
  EXPECT_EQ(match(windowOf("x", "X")), "clock");
  setProcessFile("cmdline", "bigclock\0"s);
  EXPECT_EQ(match(windowOf("x", "X")), "none");
}

TEST_F(WindowMatcherTest, FindsTheEntryThatStartsTheScriptOfAnInterpreter) {
  addEntry("python", "Exec=/usr/bin/python3");
  addEntry("tool", "Exec=python3 /usr/share/tool/tool.py");
  setExecutable("/usr/bin/python3.11");
  setProcessFile("cmdline", "python3\0/usr/share/tool/tool.py\0"s);
  EXPECT_EQ(match(windowOf("x", "X")), "tool");
  setProcessFile("cmdline", "python3\0/home/me/other.py\0"s);
  EXPECT_EQ(match(windowOf("x", "X")), "none");
}

TEST_F(WindowMatcherTest, CopesWithWhateverAWindowSays) {
  addEntry("a", "StartupWMClass=A");
  for (const std::string& text :
       {"\xff\xfe"s, "a\nb"s, "../a"s, std::string(70000, 'a'), std::string(70000, '.'), "a\0b"s})
    EXPECT_EQ(match(windowOf(text, text)), "none");
}

}  // namespace
