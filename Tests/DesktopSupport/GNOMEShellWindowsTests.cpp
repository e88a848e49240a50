#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/Windows/GNOMEShell/GNOMEShellWindows.h"

namespace {

using namespace DesktopSupport;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// An answer in GVariant's text form.
VariantHandle parsed(const std::string& text) {
  ErrorHandle error;
  VariantHandle answer(g_variant_parse(nullptr, text.c_str(), nullptr, nullptr, Out(error)));
  if (!answer)
    throw std::invalid_argument(error->message);
  return answer;
}

std::expected<WindowList, DesktopError> windowsIn(const std::string& answer) {
  return gnomeShellWindowsIn(parsed(answer).get());
}

// The only window of an answer with these properties and an id.
Window windowWith(const std::string& properties) {
  const auto list = windowsIn("(uint32 1, [{'id': <uint32 7>, " + properties + "}])");
  return list && list->windows.size() == 1 ? list->windows.front() : Window();
}

std::string errorOf(const std::string& answer) {
  const auto list = windowsIn(answer);
  EXPECT_FALSE(list) << answer;
  EXPECT_TRUE(list || !list.error().isAbsent);
  return list ? "" : list.error().message;
}

constexpr const char* threeWindows = R"((uint32 1, [
    {'id': <uint32 5>, 'title': <'Third'>, 'focus': <false>},
    {'id': <uint32 2>, 'title': <'First'>, 'focus': <true>},
    {'id': <uint32 4>, 'title': <'Second'>, 'focus': <false>}]))";

TEST(GNOMEShellWindows, AreInTheOrderInWhichTheyAppeared) {
  const auto list = windowsIn(threeWindows);
  ASSERT_TRUE(list);
  std::vector<std::string> titles;
  for (const Window& window : list->windows)
    titles.push_back(window.title);
  EXPECT_THAT(titles, ElementsAre("First", "Second", "Third"));
  EXPECT_THAT(list->stack, ElementsAre(5, 2, 4));
  EXPECT_EQ(list->active, 2U);
  EXPECT_TRUE(list->isComplete);
  EXPECT_THAT(list->problems, IsEmpty());
}

TEST(GNOMEShellWindows, HaveWhatTheShellTells) {
  const Window window = windowWith(R"(
      'title': <'Größe'>, 'pid': <1234>, 'desktop-entry': <'org.gnome.Nautilus.desktop'>, 'wm-class': <'Nautilus'>,
      'wm-class-instance': <'nautilus'>, 'transient-for': <uint32 3>, 'type': <uint32 0>, 'skip-taskbar': <false>,
      'minimized': <true>, 'focus': <false>)");
  EXPECT_EQ(window.id, 7U);
  EXPECT_EQ(window.title, "Größe");
  EXPECT_EQ(window.pid, 1234);
  EXPECT_EQ(window.applicationID, "org.gnome.Nautilus");
  EXPECT_EQ(window.windowClass, "Nautilus");
  EXPECT_EQ(window.instance, "nautilus");
  EXPECT_EQ(window.transientFor, 3U);
  EXPECT_TRUE(window.isOrdinary);
  EXPECT_TRUE(window.isHidden);
}

TEST(GNOMEShellWindows, HaveNothingElse) {
  const auto list = windowsIn("(uint32 1, [{'id': <uint32 7>}])");
  ASSERT_TRUE(list);
  const Window& window = list->windows.front();
  EXPECT_EQ(window.title + window.applicationID + window.windowClass + window.instance, "");
  EXPECT_EQ(window.pid, std::nullopt);
  EXPECT_EQ(window.transientFor, std::nullopt);
  EXPECT_EQ(list->active, std::nullopt);
  EXPECT_TRUE(window.isOrdinary);
  EXPECT_FALSE(window.isHidden);
}

TEST(GNOMEShellWindows, MayBeNone) {
  const auto list = windowsIn("(uint32 1, @aa{sv} [])");
  ASSERT_TRUE(list);
  EXPECT_THAT(list->windows, IsEmpty());
}

TEST(GNOMEShellWindows, AreNotOrdinaryIfTheyArePartsOfTheDesktop) {
  EXPECT_FALSE(windowWith("'skip-taskbar': <true>").isOrdinary);
  for (const char* type : {"1", "2", "8"})
    EXPECT_FALSE(windowWith(std::string("'type': <uint32 ") + type + ">").isOrdinary) << type;
  for (const char* type : {"0", "3", "4", "7", "99"})
    EXPECT_TRUE(windowWith(std::string("'type': <uint32 ") + type + ">").isOrdinary) << type;
}

TEST(GNOMEShellWindows, HaveTheIDThatTheirSandboxGivesThemIfTheShellKnowsNoEntry) {
  EXPECT_EQ(windowWith("'sandboxed-app-id': <'org.example.App'>").applicationID, "org.example.App");
  EXPECT_EQ(windowWith("'sandboxed-app-id': <'org.example.App'>, 'desktop-entry': <'other.desktop'>").applicationID,
            "other");
}

TEST(GNOMEShellWindows, HaveNoProcessIfTheShellKnowsNone) {
  for (const char* pid : {"0", "-1", "-2147483648"})
    EXPECT_EQ(windowWith(std::string("'pid': <") + pid + ">").pid, std::nullopt) << pid;
}

TEST(GNOMEShellWindows, MayHavePropertiesThatAreNotKnownYet) {
  EXPECT_EQ(windowWith("'title': <'A'>, 'opacity': <0.5>, 'tags': <['x']>").title, "A");
}

TEST(GNOMEShellWindows, KeepTitlesThatCannotBeShown) {
  EXPECT_EQ(windowWith(R"('title': <'a\nb\u202ec\u0007'>)").title, "a\nb\u202Ec\a");
  const std::string longTitle(100'000, 'x');
  EXPECT_EQ(windowWith("'title': <'" + longTitle + "'>").title, longTitle);
}

TEST(GNOMEShellWindows, AreUnknownIfTheExtensionIsOfAnotherVersion) {
  for (const char* answer : {"(uint32 2, [{'id': <uint32 7>}])", "(uint32 2, 'anything', 1)", "(uint32 2,)"})
    EXPECT_THAT(errorOf(answer), HasSubstr("version 2 of the extension gleanery@quillary.com")) << answer;
}

TEST(GNOMEShellWindows, AreUnknownIfTheAnswerIsMalformed) {
  for (const char* answer : {"()", "(1,)", "('text',)", "(uint32 1,)", "(uint32 1, 'text')", "(uint32 1, ['text'])",
                             "(uint32 1, @aa{sv} [], 1)", "(uint32 1, [@a{sv} {}])", "(uint32 1, [{'id': <uint32 0>}])",
                             "(uint32 1, [{'id': <'7'>}])", "(uint32 1, [{'id': <7>}])"})
    EXPECT_THAT(errorOf(answer), HasSubstr("malformed")) << answer;
  for (const char* property : {"'title': <1>", "'pid': <uint32 1>", "'pid': <'1'>", "'desktop-entry': <['x']>",
                               "'transient-for': <true>", "'type': <'normal'>", "'skip-taskbar': <uint32 0>",
                               "'minimized': <'no'>", "'focus': <{'a': 'b'}>", "'wm-class': <<'x'>>"})
    EXPECT_THAT(errorOf(std::string("(uint32 1, [{'id': <uint32 7>, ") + property + "}])"), HasSubstr("malformed"))
        << property;
}

TEST(GNOMEShellWindows, AreUnknownIfTheAnswerIsTooLong) {
  const std::string title(16 << 20, 'x');
  EXPECT_THAT(errorOf("(uint32 1, [{'id': <uint32 7>, 'title': <'" + title + "'>}])"), HasSubstr("too long"));
}

TEST(GNOMEShellGTKWindows, HaveTheTopmostFirst) {
  const auto answer = parsed(R"((uint32 1, [
      {'id': <uint32 2>, 'gtk-unique-bus-name': <':1.2'>, 'gtk-window-object-path': <'/window/2'>},
      {'id': <uint32 3>, 'title': <'not GTK'>},
      {'id': <uint32 1>, 'gtk-unique-bus-name': <':1.1'>, 'gtk-window-object-path': <'/window/1'>}]))");
  EXPECT_THAT(gnomeShellGTKWindowsIn(answer.get()),
              ElementsAre(GTKWindowName{":1.1", "/window/1"}, GTKWindowName{":1.2", "/window/2"}));
}

TEST(GNOMEShellGTKWindows, AreNoneIfTheAnswerIsMalformed) {
  for (const char* text : {"('text',)", "(uint32 2, [{'gtk-window-object-path': <'/window/1'>}])",
                           "(uint32 1, [{'gtk-window-object-path': <1>}])"})
    EXPECT_THAT(gnomeShellGTKWindowsIn(parsed(text).get()), IsEmpty()) << text;
}

}  // namespace
