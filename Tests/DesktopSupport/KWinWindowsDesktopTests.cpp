#include <chrono>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/Windows/KWin/KWinWindows.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/FakeKWin.h"

namespace {

using namespace DesktopSupport;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using TestSupport::FakeKWin;
using namespace std::chrono_literals;

std::vector<std::string> titles() {
  const auto list = readKWinWindows();
  if (!list)
    return {list.error().message};
  std::vector<std::string> titles;
  for (const Window& window : list->windows)
    titles.push_back(window.title);
  return titles;
}

DesktopError errorOf(std::chrono::milliseconds patience = kwinAnswerTime) {
  const auto list = readKWinWindows(patience);
  return list ? DesktopError{"none"} : list.error();
}

TEST(KWinWindows, HaveWhatKWinSaysAboutThem) {
  FakeKWin kwin;
  kwin.addWindow("1",
                 "'resourceName': <'editor-bin'>, 'resourceClass': <'Editor'>, 'caption': <'A text'>, "
                 "'desktopFile': <'org.example.Editor'>, 'skipTaskbar': <true>, 'minimized': <true>, 'x': <1.5>");
  const auto list = readKWinWindows();
  ASSERT_TRUE(list) << list.error().message;
  ASSERT_EQ(list->windows.size(), 1U);
  const Window& window = list->windows.front();
  EXPECT_EQ(window.instance, "editor-bin");
  EXPECT_EQ(window.windowClass, "Editor");
  EXPECT_EQ(window.title, "A text");
  EXPECT_EQ(window.applicationID, "org.example.Editor");
  EXPECT_FALSE(window.isOrdinary);
  EXPECT_TRUE(window.isHidden);
  EXPECT_EQ(window.pid, std::nullopt);
}

TEST(KWinWindows, AreShownAndOrdinaryUnlessKWinSaysOtherwise) {
  FakeKWin kwin;
  kwin.addWindow("1", FakeKWin::described("Editor"));
  const auto list = readKWinWindows();
  ASSERT_TRUE(list) << list.error().message;
  EXPECT_TRUE(list->windows.front().isOrdinary);
  EXPECT_FALSE(list->windows.front().isHidden);
}

TEST(KWinWindows, AreListedOnceInTheOrderFound) {
  FakeKWin kwin;
  kwin.addWindow("2", FakeKWin::described("Second"));
  kwin.addWindow("1", FakeKWin::described("First"));
  kwin.addResult("0_{2}");
  kwin.addResult("0_{1}_");
  EXPECT_THAT(titles(), ElementsAre("A Second", "A First"));
}

TEST(KWinWindows, AreToldApartByTheirNumbers) {
  FakeKWin kwin;
  kwin.addWindow("1", FakeKWin::described("First"));
  kwin.addWindow("2", FakeKWin::described("Second"));
  const auto list = readKWinWindows();
  ASSERT_TRUE(list);
  EXPECT_NE(list->windows.front().id, list->windows.back().id);
}

TEST(KWinWindows, AreOnlyAskedAbout) {
  FakeKWin kwin;
  kwin.addWindow("1", FakeKWin::described("First"));
  ASSERT_THAT(titles(), ElementsAre("A First"));
  EXPECT_THAT(kwin.service().calls(), ElementsAre("Match('',)", "getWindowInfo('{1}',)"));
}

TEST(KWinWindows, AreNotTheOtherThingsThatASearchFinds) {
  FakeKWin kwin;
  for (const char* id : {"8_e2a08284-5e54-43d7-b458-b02d43e23480", "", "0_{", "0_}{"})
    kwin.addResult(id);
  EXPECT_THAT(titles(), IsEmpty());
  EXPECT_THAT(kwin.service().calls(), ElementsAre("Match('',)"));
}

TEST(KWinWindows, AreLeftOutIfTheyDisappearMeanwhile) {
  FakeKWin kwin;
  kwin.addWindow("1", FakeKWin::described("First"));
  kwin.addResult("0_{gone}");
  kwin.addWindow("2", FakeKWin::described("Second"));
  EXPECT_THAT(titles(), ElementsAre("A First", "A Second"));
}

TEST(KWinWindows, MayBeNone) {
  FakeKWin kwin;
  kwin.service().answer("Match", "(@a(sssida{sv}) [],)");
  EXPECT_THAT(titles(), IsEmpty());
}

TEST(KWinWindows, MayNotBeAll) {
  FakeKWin kwin;
  kwin.service().answer("Match", "(@a(sssida{sv}) [],)");
  const auto list = readKWinWindows();
  ASSERT_TRUE(list);
  EXPECT_FALSE(list->isComplete);
  EXPECT_THAT(list->problems, ElementsAre(HasSubstr("KWin")));
}

TEST(KWinWindows, KeepTitlesOfAnyKind) {
  FakeKWin kwin;
  const std::string title = "line\\nbreak \\t tab \\u202e bidi " + std::string(100'000, 'x');
  kwin.addWindow("1", FakeKWin::described("First", "'caption': <'" + title + "'>"));
  ASSERT_THAT(titles(), ElementsAre(testing::StartsWith("line\nbreak \t tab \u202e bidi xxx")));
  EXPECT_THAT(titles().front().size(), testing::Gt(100'000U));
}

TEST(KWinWindows, AreUnknownIfADescriptionLacksWhatIsNeeded) {
  for (const std::string name :
       {"resourceName", "resourceClass", "caption", "desktopFile", "skipTaskbar", "minimized"}) {
    FakeKWin kwin;
    kwin.addWindow("1", FakeKWin::described("First", "'" + name + "': <7>"));
    EXPECT_EQ(errorOf().message, "KWin describes a window without \"" + name + "\".");
    EXPECT_FALSE(errorOf().isAbsent);
  }
  FakeKWin kwin;
  kwin.addWindow("1", FakeKWin::described("First", "'caption': <7>, 'minimized': <7>"));
  EXPECT_EQ(errorOf().message, "KWin describes a window without \"caption\".") << "the first one is named";
}

TEST(KWinWindows, MayBeFoundAsTheInterfacePromises) {
  FakeKWin kwin;
  kwin.addWindow("1", FakeKWin::described("First"));
  kwin.service().answerUnchecked("Match", "([('0_{1}', 'Title', 'icon', uint32 100, 0.8, @a{sv} {})],)");
  EXPECT_THAT(titles(), ElementsAre("A First"));
}

TEST(KWinWindows, AreUnknownIfTheSearchIsAnsweredOtherwise) {
  FakeKWin kwin;
  kwin.service().answerUnchecked("Match", "(['0_{1}'],)");
  EXPECT_THAT(errorOf().message, HasSubstr("KWin does not list its windows: "));
  EXPECT_FALSE(errorOf().isAbsent);
}

TEST(KWinWindows, AreUnknownIfADescriptionIsSomethingElse) {
  FakeKWin kwin;
  kwin.addWindow("1", "");
  kwin.service().answerUnchecked("getWindowInfo", "('a text',)");
  EXPECT_THAT(errorOf().message, HasSubstr("KWin does not list its windows: "));
  EXPECT_FALSE(errorOf().isAbsent);
}

TEST(KWinWindows, AreUnknownIfKWinRefusesToSearch) {
  FakeKWin kwin;
  EXPECT_EQ(errorOf().message, "KWin does not list its windows: No answer is set.");
  EXPECT_FALSE(errorOf().isAbsent);
}

TEST(KWinWindows, AreAbsentIfNothingHasKWinsName) {
  for (const char* name : {"ServiceUnknown", "NameHasNoOwner"}) {
    FakeKWin kwin;
    kwin.service().answer("Match", [name](GDBusMethodInvocation* invocation) {
      g_dbus_method_invocation_return_dbus_error(invocation,
                                                 (std::string("org.freedesktop.DBus.Error.") + name).c_str(), "No.");
    });
    EXPECT_TRUE(errorOf().isAbsent) << name;
  }
}

TEST(KWinWindows, MayBeMany) {
  FakeKWin kwin;
  for (int number = 1; number <= 200; ++number)
    kwin.addWindow(std::to_string(number), FakeKWin::described("Window"));
  EXPECT_THAT(titles(), testing::SizeIs(200));
}

TEST(KWinWindows, AreUnknownIfThereAreMoreThanCanBe) {
  FakeKWin kwin;
  std::string results = "('0_{0}', '', '', 100, 0.8, @a{sv} {})";
  for (int number = 1; number <= 10'000; ++number)
    results += ", ('0_{" + std::to_string(number) + "}', '', '', 100, 0.8, {})";
  kwin.service().answer("Match", "([" + results + "],)");
  EXPECT_EQ(errorOf().message, "KWin lists 10001 windows, more than can be.");
  EXPECT_THAT(kwin.service().calls(), ElementsAre("Match('',)"));
}

TEST(KWinWindows, AreUnknownIfKWinIsSilent) {
  FakeKWin kwin;
  kwin.service().answer("Match", [](GDBusMethodInvocation* invocation) { g_object_unref(invocation); });
  EXPECT_THAT(errorOf(50ms).message, HasSubstr("KWin does not list its windows: "));
  kwin.addWindow("1", "");
  kwin.service().answer("getWindowInfo", [](GDBusMethodInvocation* invocation) { g_object_unref(invocation); });
  EXPECT_THAT(errorOf(50ms).message, HasSubstr("KWin does not list its windows: "));
  EXPECT_FALSE(errorOf(50ms).isAbsent);
}

TEST(KWinWindows, AreUnknownIfKWinLeaves) {
  FakeKWin kwin;
  kwin.addWindow("1", "");
  kwin.service().answer("getWindowInfo", [&](GDBusMethodInvocation* invocation) {
    kwin.service().disappear();
    g_object_unref(invocation);
  });
  EXPECT_THAT(errorOf().message, HasSubstr("KWin does not list its windows: "));
}

TEST(KWinWindows, AreAbsentWithoutKWin) {
  EXPECT_TRUE(errorOf().isAbsent);
  EXPECT_THAT(errorOf().message, Not(IsEmpty()));
}

TEST(KWinWindows, AreAbsentWithoutASessionBus) {
  const TestSupport::EnvironmentVariable runtimeFolder("XDG_RUNTIME_DIR", "/no/such/folder");
  const TestSupport::EnvironmentVariable address("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
  EXPECT_TRUE(errorOf().isAbsent);
}

}  // namespace
