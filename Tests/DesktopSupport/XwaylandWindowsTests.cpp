#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/Screen/XwaylandWindows.h"

namespace {

using DesktopSupport::addX11Windows;
using DesktopSupport::needsX11Windows;
using DesktopSupport::Window;
using DesktopSupport::WindowList;
using testing::ElementsAre;
using testing::Field;
using testing::SizeIs;

/// A window as a compositor without process ids lists it.
Window wayland(DesktopSupport::WindowID id, const std::string& name, const std::string& title = "") {
  return {.id = id, .windowClass = name, .title = title, .applicationID = name};
}

/// A window as the X server lists it.
Window x11(DesktopSupport::WindowID id, pid_t pid, const std::string& windowClass, const std::string& title = "") {
  return {.id = id, .instance = "instance", .windowClass = windowClass, .title = title, .pid = pid};
}

TEST(XwaylandWindows, AreAskedForIfSomethingIsUnknown) {
  WindowList list{.windows = {x11(1, 10, "a")}};
  EXPECT_FALSE(needsX11Windows(list));
  list.isComplete = false;
  EXPECT_TRUE(needsX11Windows(list));
  list.isComplete = true;
  list.windows.push_back(wayland(2, "b"));
  EXPECT_TRUE(needsX11Windows(list));
  EXPECT_FALSE(needsX11Windows({}));
}

TEST(XwaylandWindows, AreListedOnceWithWhatTheXServerKnows) {
  WindowList list{.windows = {wayland(1, "native"), wayland(2, "XTerm", "shell")}};
  addX11Windows(list, {.windows = {x11(77, 10, "XTerm", "shell")}});
  ASSERT_THAT(list.windows, SizeIs(2));
  EXPECT_FALSE(list.windows[0].pid);
  const Window& xterm = list.windows[1];
  EXPECT_EQ(xterm.id, 2U);
  EXPECT_EQ(xterm.pid, 10);
  EXPECT_EQ(xterm.instance, "instance");
  EXPECT_EQ(xterm.applicationID, "XTerm");
}

TEST(XwaylandWindows, AreRecognisedByAnyOfTheirNamesInAnyCase) {
  WindowList list{.windows = {wayland(1, "INSTANCE"), wayland(2, "org.example.App")}};
  Window withID = x11(8, 20, "Other");
  withID.instance = "other";
  withID.applicationID = "org.example.App";
  addX11Windows(list, {.windows = {x11(7, 10, "Class"), withID}});
  ASSERT_THAT(list.windows, SizeIs(2));
  EXPECT_EQ(list.windows[0].pid, 10);
  EXPECT_EQ(list.windows[1].pid, 20);
}

TEST(XwaylandWindows, AreNotRecognisedByTheNamesThatTheyLack) {
  WindowList list{.windows = {wayland(1, "")}};
  Window nameless = x11(7, 10, "");
  nameless.instance = "";
  addX11Windows(list, {.windows = {nameless}});
  EXPECT_FALSE(list.windows[0].pid);
}

TEST(XwaylandWindows, AreToldApartByTheirTitles) {
  WindowList list{.windows = {wayland(1, "app", "one"), wayland(2, "app", "two"), wayland(3, "app", "three")}};
  addX11Windows(list, {.windows = {x11(7, 30, "app", "changed"), x11(8, 20, "app", "two"), x11(9, 10, "app", "one")}});
  ASSERT_THAT(list.windows, SizeIs(3));
  EXPECT_EQ(list.windows[0].pid, 10);
  EXPECT_EQ(list.windows[1].pid, 20);
  EXPECT_EQ(list.windows[2].pid, 30);
  EXPECT_EQ(list.windows[2].title, "three");
}

TEST(XwaylandWindows, AreToldApartByTheirProcesses) {
  WindowList list{.windows = {x11(1, 10, "app", "same"), x11(2, 20, "app", "same"), wayland(3, "other")}};
  Window second = x11(7, 20, "changed", "same");
  second.transientFor = 8;
  addX11Windows(list, {.windows = {second, x11(8, 10, "app", "same"), x11(9, 30, "app", "same")}});
  ASSERT_THAT(list.windows, SizeIs(3));
  EXPECT_EQ(list.windows[1].windowClass, "changed");
  EXPECT_EQ(list.windows[1].transientFor, 1U);
  EXPECT_FALSE(list.windows[2].pid);
}

TEST(XwaylandWindows, KeepWhatTheCompositorAloneKnows) {
  WindowList list{.windows = {x11(1, 10, "app", "one"), wayland(2, "owner")}};
  list.windows[0].transientFor = 2;
  Window window = x11(7, 0, "app", "one");
  window.pid = std::nullopt;
  addX11Windows(list, {.windows = {window}});
  EXPECT_EQ(list.windows[0].pid, 10);
  EXPECT_EQ(list.windows[0].transientFor, 2U);
}

TEST(XwaylandWindows, HaveTheStatesOfBothSides) {
  WindowList list{.windows = {wayland(1, "hidden"), wayland(2, "skipped"), wayland(3, "plain"), wayland(4, "panel")}};
  list.windows[0].isHidden = true;
  list.windows[3].isOrdinary = false;
  Window skipped = x11(8, 20, "skipped");
  skipped.isOrdinary = false;
  addX11Windows(list, {.windows = {x11(7, 10, "hidden"), skipped, x11(9, 30, "plain"), x11(6, 40, "panel")}});
  EXPECT_TRUE(list.windows[0].isHidden);
  EXPECT_TRUE(list.windows[0].isOrdinary);
  EXPECT_FALSE(list.windows[1].isOrdinary);
  EXPECT_FALSE(list.windows[2].isHidden);
  EXPECT_TRUE(list.windows[2].isOrdinary);
  EXPECT_EQ(list.windows[3].pid, 40);
  EXPECT_FALSE(list.windows[3].isOrdinary);
}

TEST(XwaylandWindows, AreLeftOutIfACompleteListLacksThem) {
  WindowList list{.windows = {wayland(1, "native")}};
  addX11Windows(list, {.windows = {x11(7, 10, "gone")}, .active = 7});
  EXPECT_THAT(list.windows, ElementsAre(Field(&Window::windowClass, "native")));
  EXPECT_FALSE(list.active);
}

TEST(XwaylandWindows, CompleteAnIncompleteList) {
  WindowList list{.windows = {x11(7, 10, "native")}, .isComplete = false};
  Window dialog = x11(8, 20, "more");
  dialog.transientFor = 7;
  addX11Windows(list, {.windows = {x11(7, 20, "more"), dialog}, .active = 8});
  ASSERT_THAT(list.windows, SizeIs(3));
  const Window& added = list.windows[1];
  EXPECT_EQ(added.pid, 20);
  EXPECT_NE(added.id, 7U);
  EXPECT_EQ(list.windows[2].transientFor, added.id);
  EXPECT_EQ(list.active, list.windows[2].id);
}

}  // namespace
