// Which desktop entry belongs to a window of a program in an AppImage.

#include <string>

#include <gtest/gtest.h>

#include "Tests/DesktopSupport/WindowMatcherTest.h"
#include "Tests/Support/EnvironmentVariable.h"

namespace {

using namespace std::string_literals;
using TestSupport::WindowMatcherTest;

TEST_F(WindowMatcherTest, FindsTheEntryInsideAnUnpackedAppImage) {
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

class AppImageWindow : public WindowMatcherTest {
 protected:
  AppImageWindow() {
    setProgram(folder_.path() / "mount/usr/bin/tool");
    setEnvironment();
    folder_.write("mount/inner.desktop", "[Desktop Entry]\nType=Application\nName=Inner\n");
  }

  void setProgram(const std::string& program) { setExecutable(program); }
  void setEnvironment(const std::string& more = "") {
    setProcessFile("environ", "APPIMAGE=" + image_ + "\0APPDIR="s + (folder_.path() / "mount").string() + '\0' + more);
  }

  std::string image_ = folder_.write("Images/Tool.AppImage", "");
};

TEST_F(AppImageWindow, HasTheEntryThatRunsTheImage) {
  addEntry("system-tool", "Exec=tool\nStartupWMClass=Tool");
  addEntry("elsewhere", "Exec=/opt/Tool.AppImage %U");
  EXPECT_EQ(match(windowOf("tool", "Tool")), "none") << "the class names another program";
  addEntry("integrated", "Exec=env A=1 \"" + image_ + "\" --no-sandbox %U");
  EXPECT_EQ(match(windowOf("tool", "Tool")), "integrated");
}

TEST_F(AppImageWindow, IsNoneOfAProgramOfTheSystem) {
  addEntry("integrated", "Exec=\"" + image_ + "\"");
  setProgram("/usr/bin/tool");
  setProcessFile("environ", "APPIMAGE=" + image_ + "\0APPDIR=/usr\0"s);
  EXPECT_EQ(match(windowOf("tool", "Tool")), "none");
}

TEST_F(AppImageWindow, HasTheEntryThatTriesTheImage) {
  addEntry("integrated", "Exec=image-launcher tool\nTryExec=" + image_);
  EXPECT_EQ(match(windowOf("tool", "Tool")), "integrated");
}

TEST_F(AppImageWindow, HasTheEntryThatRunsALinkToTheImage) {
  std::filesystem::create_directory_symlink("Images", folder_.path() / "link");
  addEntry("linked", "Exec=" + (folder_.path() / "link/Tool.AppImage").string());
  EXPECT_EQ(match(windowOf("tool", "Tool")), "linked");
  std::filesystem::remove(folder_.path() / "link");
  EXPECT_EQ(match(windowOf("tool", "Tool")), "none");
}

TEST_F(AppImageWindow, HasTheEntryThatRunsTheImageInThePath) {
  std::filesystem::permissions(image_, std::filesystem::perms::owner_all);
  addEntry("in-path", "Exec=Tool.AppImage %U");
  EXPECT_EQ(match(windowOf("tool", "Tool")), "none");
  const TestSupport::EnvironmentVariable path("PATH", folder_.path() / "Images");
  EXPECT_EQ(match(windowOf("tool", "Tool")), "in-path");
}

TEST_F(AppImageWindow, HasTheOneOfSeveralEntriesThatClaimsIt) {
  addEntry("a", "Exec=" + image_ + "\nNoDisplay=true");
  addEntry("b", "Exec=" + image_);
  addEntry("c", "Exec=" + image_ + " --draw\nStartupWMClass=Draw\nNoDisplay=true");
  EXPECT_EQ(match(windowOf("tool", "Tool")), "b");
  EXPECT_EQ(match(windowOf("tool", "Draw")), "c");
}

TEST_F(AppImageWindow, HasTheEntryThatLaunchedIt) {
  addEntry("own", "Exec=/home/me/start-tool");
  const std::string file = folder_.path() / "applications/own.desktop";
  setEnvironment("GIO_LAUNCHED_DESKTOP_FILE=" + file + "\0GIO_LAUNCHED_DESKTOP_FILE_PID=7\0"s);
  EXPECT_EQ(match(windowOf("tool", "Tool")), "own");
  setEnvironment("GIO_LAUNCHED_DESKTOP_FILE=" + file + "\0GIO_LAUNCHED_DESKTOP_FILE_PID=6\0"s);
  EXPECT_EQ(match(windowOf("tool", "Tool")), "none");
}

TEST_F(AppImageWindow, IsNotOneOfAProgramThatTheImageStarted) {
  addEntry("integrated", "Exec=" + image_);
  addEntry("clock");
  for (const char* program : {"/usr/bin/clock", "/opt/clock"}) {
    setProgram(program);
    EXPECT_EQ(match(windowOf("clock", "Clock")), "clock") << program;
  }
  setProgram(folder_.path() / "mount-of-another/clock");
  EXPECT_EQ(match(windowOf("clock", "Clock")), "clock");
}

TEST_F(AppImageWindow, MayBeOneOfAScriptInTheImage) {
  addEntry("integrated", "Exec=" + image_);
  setProgram("/usr/bin/python3.11");
  setProcessFile("cmdline", "python3\0"s + folder_.write("mount/tool.py", "").string() + '\0');
  EXPECT_EQ(match(windowOf("tool", "Tool")), "integrated");
  setProcessFile("cmdline", "python3\0"s + folder_.write("other.py", "").string() + '\0');
  EXPECT_EQ(match(windowOf("x", "X")), "none");
}

TEST_F(AppImageWindow, CopesWithWhateverTheEnvironmentSays) {
  addEntry("clock");
  addEntry("root", "Exec=/");
  setProgram("/opt/clock");
  for (const std::string& variables :
       {"APPIMAGE=/\0APPDIR=/\0"s, "APPIMAGE=a\0APPDIR=/opt\0"s, "APPIMAGE=/opt/a\0APPDIR=/opt\0"s,
        "APPIMAGE=/a\0APPDIR=opt\0"s, "APPIMAGE=/a\0APPDIR=/x/..\0"s, "APPIMAGE=/a\0APPDIR=\0"s, "APPIMAGE=/a\0"s,
        "APPDIR=/opt\0"s, "APPIMAGE=/" + std::string(1 << 20, 'a') + "\0APPDIR=/opt\0"s}) {
    setProcessFile("environ", variables);
    EXPECT_EQ(match(windowOf("clock", "Clock")), "clock") << variables.substr(0, 60);
  }
}

}  // namespace
