#include <string>
#include <utility>

#include <gmock/gmock.h>

#include "BrowserSessions/Companion/CompanionAnswer.h"
#include "BrowserSessions/Companion/Companions.h"
#include "Tests/BrowserSessions/BrowserSessionPrinting.h"
#include "Tests/Support/GIOHandles.h"

namespace BrowserSessions {
namespace {

using DesktopSupport::owned;
using DesktopSupport::VariantHandle;
using testing::HasSubstr;

CompanionAnswer afterTheBus(const CompanionAnswer& answer) {
  return companionAnswerIn(owned(variantFrom(answer)).get()).value();
}

std::string errorOf(const char* reply) {
  const VariantHandle variant(g_variant_parse(nullptr, reply, nullptr, nullptr, nullptr));
  const auto answer = companionAnswerIn(variant.get());
  return answer ? "none" : answer.error();
}

TEST(CompanionAnswer, ReachesTheOtherEndOfTheBusUnchanged) {
  const CompanionAnswer answer{
      .browser = 4321,
      .extension = "gleanery@quillary.com",
      .windows = {{.number = 1234567890123, .type = "normal", .isFocused = true, .tabs = "a\nA\na\n"},
                  {.number = -2, .type = "popup", .isFocused = false, .tabs = ""},
                  {.number = 3, .type = "", .isFocused = false, .tabs = "p\n\n\nl\nGröße\nfile:///b\n"}}};
  EXPECT_EQ(afterTheBus(answer), answer);
  EXPECT_EQ(afterTheBus({}), CompanionAnswer());
}

TEST(CompanionAnswer, HasTheTypeThatTheInterfaceDescribes) {
  const VariantHandle reply = owned(variantFrom(CompanionAnswer()));
  EXPECT_STREQ(g_variant_get_type_string(reply.get()), "(ua{sv}a(xsbs))");
  for (const char* type : {"\"u\"", "\"a{sv}\"", "\"a(xsbs)\""})
    EXPECT_THAT(companionIntrospection, HasSubstr(type));
}

TEST(CompanionAnswer, HasTextsThatTheBusCanCarry) {
  const CompanionAnswer answer{.browser = 1,
                               .extension = "x\xFF",
                               .windows = {{.number = 1, .type = "a\xFF", .tabs = std::string("\nN\0L\nb\xC3\n", 8)}}};
  const CompanionAnswer expected{.browser = 1,
                                 .extension = "x\uFFFD",
                                 .windows = {{.number = 1, .type = "a\uFFFD", .tabs = "\nN\uFFFDL\nb\uFFFD\n"}}};
  EXPECT_EQ(afterTheBus(answer), expected);
}

TEST(CompanionAnswer, IsRefusedIfAnotherVersionOfTheCompanionGivesIt) {
  for (const char* reply : {"(uint32 2, 'anything')", "(uint32 2,)", "(uint32 2, @a{sv} {}, @a(xsbs) [])"})
    EXPECT_EQ(
        errorOf(reply),
        "The browser runs version 2 of the companion, which does not go with this program. After an update, start "
        "the browser again.");
}

TEST(CompanionAnswer, IsRefusedIfItIsMalformed) {
  for (const char* reply : {"()", "('1',)", "(uint32 1,)", "(uint32 1, @a{sv} {})", "(uint32 1, @a{sv} {}, @as [])",
                            "(1, @a{sv} {}, @a(xsbs) [])", "'text'"})
    EXPECT_EQ(errorOf(reply), "The companion's list of tabs is malformed.") << reply;
}

TEST(CompanionAnswer, DoesNotNeedFactsAboutTheBrowser) {
  EXPECT_EQ(errorOf("(uint32 1, {'process': <'x'>, 'extension': <1>, 'more': <true>}, @a(xsbs) [])"), "none");
}

TEST(CompanionName, TellsTheBrowserAndTheCompanionApart) {
  EXPECT_EQ(companionName(12, 34), "com.quillary.Gleanery.Tabs.Browser12.Companion34");
  EXPECT_TRUE(companionName(12, 34).starts_with(companionNamePrefix(12)));
  EXPECT_FALSE(companionName(123, 34).starts_with(companionNamePrefix(12)));
  EXPECT_TRUE(g_dbus_is_name(companionName(4194304, 4194303).c_str()));
}

TEST(CompanionAnswer, IsRefusedIfATabIsIncomplete) {
  for (const char* tabs : {"a", "a\\n", "a\\nA\\n", "a\\nA\\na", "a\\nA\\na\\n\\n", "a\\nA\\na\\n\\n\\nb"})
    EXPECT_EQ(errorOf(("(uint32 1, @a{sv} {}, [(int64 1, 'normal', false, '" + std::string(tabs) + "')])").c_str()),
              "The companion's list of tabs is malformed.")
        << tabs;
}

TEST(CompanionWindow, HasTheTabsInItsText) {
  EXPECT_THAT(tabsOf({.number = 1, .tabs = "a\nA\na\n\n\n\nap\nB C\nb:c\nl\nD\nd\nxyz\nE\ne\n"}),
              testing::ElementsAre(CompanionTab{"A", "a", true}, CompanionTab{}, CompanionTab{"B C", "b:c", true, true},
                                   CompanionTab{"D", "d", false, false, true}, CompanionTab{"E", "e"}));
  EXPECT_THAT(tabsOf({}), testing::IsEmpty());
}

TEST(CompanionWindow, ShowsItsActiveTab) {
  EXPECT_EQ(browserWindow({.number = 1, .tabs = "\nA\na\na\nB\nb\n\nC\nc\n"}),
            (BrowserWindow{{{"A", "a"}, {"B", "b"}, {"C", "c"}}, 1}));
  EXPECT_EQ(browserWindow({.number = 1, .tabs = "\nA\na\n\nB\nb\n"}), (BrowserWindow{{{"A", "a"}, {"B", "b"}}, 0}));
  EXPECT_EQ(browserWindow({}), BrowserWindow());
}

}  // namespace
}  // namespace BrowserSessions
