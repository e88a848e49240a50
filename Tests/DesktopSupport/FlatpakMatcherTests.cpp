// Which desktop entry belongs to a window of a program in a Flatpak.

#include <string>

#include <gtest/gtest.h>

#include "Tests/DesktopSupport/WindowMatcherTest.h"

namespace {

using namespace std::string_literals;
using DesktopSupport::Window;
using TestSupport::WindowMatcherTest;

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

class FlatpakWindow : public WindowMatcherTest {
 protected:
  void setFlatpak(const std::string& id) { setProcessFile("root/.flatpak-info", "[Application]\nname=" + id + "\n"); }
};

TEST_F(FlatpakWindow, HasTheEntryOfTheFlatpak) {
  addEntry("org.example.App", "X-Flatpak=org.example.App");
  addEntry("tool", "StartupWMClass=tool");
  setFlatpak("org.example.App");
  setSharesMounts(false);
  EXPECT_EQ(match(windowOf("tool", "tool")), "org.example.App") << "the other is another installation";
}

TEST_F(FlatpakWindow, NeedsOnlyTheEntryThatClaimsIt) {
  addEntry("org.example.App", "X-Flatpak=org.example.App\nStartupWMClass=App");
  addEntry("other");
  setFlatpak("org.example.App");
  for (const Window& window : {windowOf("app", "App"), waylandWindow("org.example.App")}) {
    EXPECT_EQ(match(window), "org.example.App");
    EXPECT_EQ(filesRead_, 1U);
  }
}

TEST_F(FlatpakWindow, HasTheOneOfItsEntriesThatClaimsIt) {
  addEntry("org.example.Office", "X-Flatpak=org.example.Office\nStartupWMClass=office");
  addEntry("org.example.Office.writer", "X-Flatpak=org.example.Office\nStartupWMClass=office-writer");
  addEntry("org.example.Office.calc", "X-Flatpak=org.example.Office\nStartupWMClass=office-calc");
  addEntry("office-calc", "StartupWMClass=office-calc");
  setFlatpak("org.example.Office");
  EXPECT_EQ(match(windowOf("office", "office-calc")), "org.example.Office");
  EXPECT_EQ(match(windowOf("x", "office-calc")), "org.example.Office.calc");
  EXPECT_EQ(match(waylandWindow("Office-Writer")), "org.example.Office.writer");
  EXPECT_EQ(match(windowOf("x", "unheard-of")), "org.example.Office");
}

TEST_F(FlatpakWindow, HasItsEntryUnderAnotherName) {
  addEntry("hidden", "X-Flatpak=org.example.App\nNoDisplay=true");
  addEntry("my-app", "X-Flatpak=org.example.App");
  addEntry("other", "X-Flatpak=org.example.Other\nStartupWMClass=App");
  setFlatpak("org.example.App");
  EXPECT_EQ(match(windowOf("app", "App")), "my-app");
  addEntry("part", "X-Flatpak=org.example.App\nStartupWMClass=app");
  EXPECT_EQ(match(windowOf("app", "App")), "part");
}

TEST_F(FlatpakWindow, HasNoEntryOfAnotherFlatpakOrSnap) {
  addEntry("org.example.Other", "X-Flatpak=org.example.Other\nStartupWMClass=App");
  addEntry("app_app", "X-SnapInstanceName=app\nStartupWMClass=app");
  setFlatpak("org.example.App");
  EXPECT_EQ(match(windowOf("app", "App")), "none");
}

TEST_F(FlatpakWindow, IsKnownByTheScopeIfTheProcessCannotBeRead) {
  addEntry("org.example.App-X", "X-Flatpak=org.example.App-X");
  addEntry("tool");
  setProcessFile("cgroup", R"(0::/user.slice/app.slice/app-flatpak-org.example.App\x2dX-99.scope)"
                           "\n");
  EXPECT_EQ(match(windowOf("tool", "tool")), "org.example.App-X");
}

TEST_F(FlatpakWindow, IsThatOfTheSandboxRatherThanOfTheScope) {
  addEntry("org.example.Inner");
  addEntry("org.example.Outer");
  setFlatpak("org.example.Inner");
  setProcessFile("cgroup", "0::/app.slice/app-flatpak-org.example.Outer-99.scope\n");
  EXPECT_EQ(match(windowOf("a", "A")), "org.example.Inner");
}

TEST_F(FlatpakWindow, IsNoneOfAProcessOutside) {
  addEntry("org.example.App", "X-Flatpak=org.example.App\nStartupWMClass=tool");
  addEntry("tool", "Exec=tool");
  setExecutable("/usr/bin/tool");
  setProcessFile("cgroup", "0::/app.slice/app-flatpak-org.example.App-99.scope\n");
  EXPECT_EQ(match(windowOf("x", "tool")), "org.example.App") << "the kernel does not tell";
  setSharesMounts(true);
  EXPECT_EQ(match(windowOf("x", "tool")), "tool");
}

TEST_F(FlatpakWindow, CopesWithWhateverTheSandboxSays) {
  folder_.write("outside.desktop", "[Desktop Entry]\nType=Application\nName=Outside\n");
  addEntry("a", "StartupWMClass=A");
  for (const std::string& id : {"../outside"s, "/etc/passwd"s, "\xff"s, ""s, std::string(70000, 'a'), "a\0b"s}) {
    setFlatpak(id);
    EXPECT_EQ(match(windowOf("x", "X")), "none");
    EXPECT_EQ(match(windowOf("a", "A")), "a");
  }
  for (const std::string& text : {"rubbish"s, "[Instance]\nname=a\n"s, "[Application]\n"s, std::string(5 << 20, '#')}) {
    setProcessFile("root/.flatpak-info", text);
    EXPECT_EQ(match(windowOf("x", "X")), "none");
  }
}

}  // namespace
