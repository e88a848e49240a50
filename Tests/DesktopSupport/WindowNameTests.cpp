// Which desktop entry belongs to a window of which only the application's id is known.

#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "Tests/DesktopSupport/WindowMatcherTest.h"

namespace {

using TestSupport::WindowMatcherTest;

class WaylandWindow : public WindowMatcherTest {
 protected:
  std::string entryOf(const std::string& id) { return match(waylandWindow(id), std::nullopt); }
};

TEST_F(WaylandWindow, HasTheEntryWithItsID) {
  addEntry("org.mozilla.firefox", "X-Flatpak=org.mozilla.firefox");
  addEntry("Alacritty");
  addEntry("debian-xterm", "StartupWMClass=XTerm");
  EXPECT_EQ(entryOf("org.mozilla.firefox"), "org.mozilla.firefox");
  EXPECT_EQ(entryOf("Alacritty"), "Alacritty");
  EXPECT_EQ(entryOf("alacritty"), "Alacritty");
  EXPECT_EQ(entryOf("XTerm"), "debian-xterm");
}

TEST_F(WaylandWindow, HasTheEntryOfTheFlatpakWithItsID) {
  addEntry("my-web", "X-Flatpak=org.example.Browser");
  EXPECT_EQ(entryOf("org.example.Browser"), "my-web");
}

TEST_F(WaylandWindow, HasTheEntryThatHadItsIDBeforeFlatpakRenamedIt) {
  addEntry("org.example.Browser", "X-Flatpak=org.example.Browser\nX-Flatpak-RenamedFrom=old.desktop;web.desktop;");
  EXPECT_EQ(entryOf("web"), "org.example.Browser");
  EXPECT_EQ(entryOf("eb"), "none");
}

TEST_F(WaylandWindow, HasTheEntryOfTheSnapWithItsName) {
  addEntry("web_web", "X-SnapInstanceName=web");
  addEntry("org.example.Files", "X-SnapInstanceName=files\nX-SnapAppName=files");
  addEntry("files_help", "X-SnapInstanceName=files\nX-SnapAppName=help");
  EXPECT_EQ(entryOf("web"), "web_web");
  EXPECT_EQ(entryOf("files"), "org.example.Files");
}

TEST_F(WaylandWindow, HasTheEntryThatRunsAProgramCalledLikeIt) {
  addEntry("org.gnome.Calculator", "Exec=gnome-calculator %U");
  addEntry("script", "Exec=/opt/python3");
  addEntry("mail", "Exec=xterm -e mail");
  EXPECT_EQ(entryOf("gnome-calculator"), "org.gnome.Calculator");
  EXPECT_EQ(entryOf("python3"), "none") << "every script has this name";
  EXPECT_EQ(entryOf("xterm"), "none");
}

TEST_F(WaylandWindow, HasTheOnlyEntryWhoseIDEndsLikeIt) {
  addEntry("org.example.Paint");
  addEntry("org.example.Files");
  addEntry("com.example.files");
  addEntry("example.Text");
  addEntry("org.example.Hidden", "NoDisplay=true");
  EXPECT_EQ(entryOf("paint"), "org.example.Paint");
  EXPECT_EQ(entryOf("aint"), "none");
  EXPECT_EQ(entryOf("files"), "none") << "two of them do";
  EXPECT_EQ(entryOf("text"), "none") << "a file name with a dot";
  EXPECT_EQ(entryOf("hidden"), "none");
}

TEST_F(WaylandWindow, IsNotNamedLikeAnEntryIfItsProgramIsAnother) {
  addEntry("org.example.Viewer", "Exec=viewer");
  setExecutable("/opt/tool");
  EXPECT_EQ(match(waylandWindow("viewer")), "none");
  EXPECT_EQ(entryOf("viewer"), "org.example.Viewer");
}

}  // namespace
