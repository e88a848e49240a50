#include <gtest/gtest.h>

#include "DesktopSupport/Windows/WindowMatcher.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using namespace std::string_literals;
using DesktopSupport::DesktopEntries;
using DesktopSupport::ProcessInfo;
using DesktopSupport::Window;

// A made-up desktop: entries in one folder, one process in another.
class WindowMatcherTest : public testing::Test {
 protected:
  void addEntry(const std::string& id, std::string_view more = "") {
    folder_.write("applications/" + id + ".desktop",
                  "[Desktop Entry]\nType=Application\nName=" + id + '\n' + std::string(more) + '\n');
  }

  void setProcessFile(const std::string& name, std::string_view contents) { folder_.write("proc/7/" + name, contents); }

  void setExecutable(const std::string& program) {
    std::filesystem::create_directories(folder_.path() / "proc/7");
    std::filesystem::create_symlink(program, folder_.path() / "proc/7/exe");
  }

  // The id of the entry that the window is matched with.
  std::string match(const Window& window) {
    DesktopEntries entries({folder_.path() / "applications"});
    const auto* entry = matchWindow(entries, window, ProcessInfo(7, folder_.path() / "proc"));
    filesRead_ = entries.filesRead();
    return entry == nullptr ? "none" : entry->id;
  }

  static Window windowOf(const std::string& instance, const std::string& windowClass) {
    return {.instance = instance, .windowClass = windowClass};
  }

  TestSupport::TemporaryFolder folder_;
  std::size_t filesRead_ = 0;
};

TEST_F(WindowMatcherTest, MatchesNothingOnAnEmptyDesktop) {
  EXPECT_EQ(match(windowOf("a", "A")), "none");
  EXPECT_EQ(match({}), "none");
}

TEST_F(WindowMatcherTest, TrustsTheSandboxFirst) {
  addEntry("org.example.Sandboxed");
  addEntry("other", "StartupWMClass=other");
  setProcessFile("root/.flatpak-info", "[Application]\nname=org.example.Sandboxed\n");
  Window window = windowOf("other", "other");
  window.applicationID = "other";
  EXPECT_EQ(match(window), "org.example.Sandboxed");
}

TEST_F(WindowMatcherTest, KnowsTheSandboxByItsUnit) {
  addEntry("org.example.Sandboxed");
  addEntry("firefox_firefox");
  setProcessFile("cgroup", "0::/app.slice/app-flatpak-org.example.Sandboxed-99.scope\n");
  EXPECT_EQ(match(windowOf("a", "A")), "org.example.Sandboxed");
  setProcessFile("cgroup", "0::/app.slice/snap.firefox.firefox-0a1b2c3d-0011-2233-4455-66778899aabb.scope\n");
  EXPECT_EQ(match(windowOf("a", "A")), "firefox_firefox");
}

TEST_F(WindowMatcherTest, GoesOnIfTheSandboxHasNoEntry) {
  addEntry("a");
  setProcessFile("root/.flatpak-info", "[Application]\nname=org.example.Missing\n");
  EXPECT_EQ(match(windowOf("a", "A")), "a");
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

TEST_F(WindowMatcherTest, FindsTheEntryInsideAnAppImage) {
  const auto image = (folder_.path() / "image").string();
  folder_.write("image/tool.desktop", "[Desktop Entry]\nType=Application\nName=Tool\n");
  setProcessFile("environ", "APPDIR=" + image + '\0');
  setExecutable(image + "/usr/bin/tool");
  EXPECT_EQ(match(windowOf("x", "X")), "tool");
}

TEST_F(WindowMatcherTest, DoesNotTakeWhatAnAppImageStartedForTheAppImage) {
  const auto image = (folder_.path() / "image").string();
  folder_.write("image/tool.desktop", "[Desktop Entry]\nType=Application\nName=Tool\n");
  setProcessFile("environ", "APPDIR=" + image + '\0');
  setExecutable("/usr/bin/xclock");
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
