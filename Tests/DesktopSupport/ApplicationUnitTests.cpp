#include <gtest/gtest.h>

#include "DesktopSupport/Processes/ApplicationUnit.h"

namespace {

using DesktopSupport::ApplicationUnit;
using DesktopSupport::SnapApplication;

std::optional<ApplicationUnit> unitIn(const std::string& path) {
  return ApplicationUnit::find("0::" + path + '\n');
}

TEST(ApplicationUnit, OfAScopeHasLauncherIDAndProcess) {
  const auto unit = unitIn("/user.slice/user@1000.service/app.slice/app-gnome-org.gnome.Terminal-4242.scope");
  ASSERT_TRUE(unit);
  EXPECT_EQ(unit->launcher, "gnome");
  EXPECT_EQ(unit->applicationID, "org.gnome.Terminal");
  EXPECT_EQ(unit->random, "4242");
}

TEST(ApplicationUnit, MayHaveNoLauncher) {
  const auto unit = unitIn("/app.slice/app-org.kde.konsole-8a1b.scope");
  ASSERT_TRUE(unit);
  EXPECT_EQ(unit->launcher, "");
  EXPECT_EQ(unit->applicationID, "org.kde.konsole");
}

TEST(ApplicationUnit, OfAServiceHasItsInstanceAfterAnAt) {
  const auto unit = unitIn("/app.slice/app-gnome-org.example.Files@12ab.service");
  ASSERT_TRUE(unit);
  EXPECT_EQ(unit->applicationID, "org.example.Files");
  EXPECT_EQ(unit->random, "12ab");
  EXPECT_EQ(unitIn("/app.slice/app-org.example.Files.service")->applicationID, "org.example.Files");
}

TEST(ApplicationUnit, HasItsIDUnescaped) {
  EXPECT_EQ(unitIn(R"(/app.slice/app-gnome-debian\x2dxterm-1.scope)")->applicationID, "debian-xterm");
  EXPECT_EQ(unitIn(R"(/app.slice/app-gnome-a\x2d-1.scope)")->applicationID, "a-");
  EXPECT_EQ(unitIn(R"(/app.slice/app-gnome-a\xzz-1.scope)")->applicationID, R"(a\xzz)");
  EXPECT_EQ(unitIn(R"(/app.slice/app-gnome-a\x2-1.scope)")->applicationID, R"(a\x2)");
}

TEST(ApplicationUnit, IsTheInnermost) {
  EXPECT_EQ(unitIn("/app-gnome-outer-1.scope/app-gnome-inner-2.scope/deeper")->applicationID, "inner");
}

TEST(ApplicationUnit, IsFoundInWhicheverHierarchyHasIt) {
  const auto unit = ApplicationUnit::find("12:cpu:/\n1:name=systemd:/app-gnome-a-1.scope\n0::/\n");
  ASSERT_TRUE(unit);
  EXPECT_EQ(unit->applicationID, "a");
}

TEST(ApplicationUnit, IsNoneInOtherUnits) {
  for (const char* path : {"", "/", "/init.scope", "/user.slice/session-2.scope", "/app.slice", "/app-a-b.slice",
                           "/app.slice/vte-spawn-1.scope", "/app.slice/dbus.service", "/app-.scope"})
    EXPECT_FALSE(unitIn(path)) << path;
  EXPECT_FALSE(ApplicationUnit::find(""));
  EXPECT_FALSE(ApplicationUnit::find("rubbish"));
}

std::string snapID(const std::string& controlGroups) {
  const auto found = SnapApplication::find(controlGroups);
  return found ? found->entryID() : "none";
}

TEST(SnapID, JoinsSnapAndApplication) {
  EXPECT_EQ(snapID("0::/app.slice/snap.firefox.firefox-0a1b2c3d-0011-2233-4455-66778899aabb.scope\n"),
            "firefox_firefox");
  EXPECT_EQ(snapID("0::/app.slice/snap.code.url-handler.1234.scope\n"), "code_url-handler");
  EXPECT_EQ(snapID("0::/app.slice/snap.code.url-handler.0a1b2c3d-0011-2233-4455-66778899aabb.scope\n"),
            "code_url-handler");
  EXPECT_EQ(snapID("0::/app.slice/snap.code.url-handler.service\n"), "code_url-handler");
  EXPECT_EQ(snapID("0::/app.slice/snap.a-snap-with-a-long-name.its-application.1234.scope\n"),
            "a-snap-with-a-long-name_its-application");
}

TEST(SnapID, HasAPlusBeforeTheKeyOfTheInstance) {
  EXPECT_EQ(snapID("0::/app.slice/snap.code_work.code.service\n"), "code+work_code");
}

TEST(SnapID, IsNoneElsewhere) {
  for (const char* unit : {"app-gnome-a-1.scope", "snap.firefox.mount", "snap.firefox.scope", "snap.firefox.service",
                           "snap.firefox.hook.configure-0a1b2c3d-0011-2233-4455-66778899aabb.scope",
                           "snap..firefox.service", "snap.firefox..service"})
    EXPECT_EQ(snapID("0::/app.slice/" + std::string(unit) + '\n'), "none") << unit;
}

TEST(SnapLabel, NamesSnapAndApplication) {
  const SnapApplication expected{.instance = "firefox_work", .application = "firefox"};
  for (const char* label : {"snap.firefox_work.firefox (enforce)\n", "snap.firefox_work.firefox",
                            "snap.firefox_work.firefox//child (complain)\n"})
    EXPECT_EQ(SnapApplication::fromLabel(label), expected) << label;
  for (const char* label : {"", "unconfined\n", "snap.a", "snap-update-ns.a.b", "snap.a.hook.configure (enforce)"})
    EXPECT_EQ(SnapApplication::fromLabel(label), std::nullopt) << label;
}

}  // namespace
