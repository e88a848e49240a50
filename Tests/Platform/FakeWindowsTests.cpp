#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "Platform/Fake/FakeWindows.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class FakeWindowsTest : public testing::Test {
 protected:
  std::unique_ptr<Platform::Window> makeWindow(int value = 5, std::size_t selected = 1) {
    return windows.makeWindow(
        {.title = "Settings",
         .elements = {Platform::Heading{"How much"},
                      Platform::NumberField{"Number", value, 1, 9, [this](int number) { numbers.push_back(number); }},
                      Platform::Choice{"Kind", {"a", "b", "c"}, selected, [this](std::size_t index) {
                                         indexes.push_back(index);
                                       }}}});
  }

  [[nodiscard]] int shownNumber() const {
    return std::get<Platform::NumberField>(windows.made.back()->content.elements[1]).value;
  }
  [[nodiscard]] std::size_t shownIndex() const {
    return std::get<Platform::Choice>(windows.made.back()->content.elements[2]).selected;
  }

  Platform::Fake::FakeWindows windows;
  std::vector<int> numbers;
  std::vector<std::size_t> indexes;
};

TEST_F(FakeWindowsTest, TellWhatAUserEnters) {
  const auto window = makeWindow();
  EXPECT_TRUE(windows.made[0]->enter("Number", 7));
  EXPECT_TRUE(windows.made[0]->choose("Kind", "c"));
  EXPECT_THAT(numbers, ElementsAre(7));
  EXPECT_THAT(indexes, ElementsAre(2U));
  EXPECT_EQ(shownNumber(), 7);
  EXPECT_EQ(shownIndex(), 2U);
}

TEST_F(FakeWindowsTest, KeepToTheBounds) {
  const auto window = makeWindow();
  EXPECT_TRUE(windows.made[0]->enter("Number", 1000));
  EXPECT_TRUE(windows.made[0]->enter("Number", -1000));
  EXPECT_THAT(numbers, ElementsAre(9, 1));
}

TEST_F(FakeWindowsTest, TellNothingOfWhatStaysAsItWas) {
  const auto window = makeWindow();
  EXPECT_TRUE(windows.made[0]->enter("Number", 5));
  EXPECT_TRUE(windows.made[0]->choose("Kind", "b"));
  EXPECT_THAT(numbers, IsEmpty());
  EXPECT_THAT(indexes, IsEmpty());
}

TEST_F(FakeWindowsTest, ShowWhatExistsInPlaceOfWhatDoesNot) {
  const auto window = makeWindow(1000, 3);
  EXPECT_EQ(shownNumber(), 9);
  EXPECT_EQ(shownIndex(), 0U);
  EXPECT_THAT(numbers, IsEmpty());
  EXPECT_THAT(indexes, IsEmpty());
}

TEST_F(FakeWindowsTest, RefuseWhatNoUserCouldDo) {
  auto window = makeWindow();
  EXPECT_FALSE(windows.made[0]->enter("Kind", 2));
  EXPECT_FALSE(windows.made[0]->choose("Number", "a"));
  EXPECT_FALSE(windows.made[0]->choose("Kind", "d"));
  window.reset();
  EXPECT_FALSE(windows.made[0]->enter("Number", 7));
  EXPECT_FALSE(windows.made[0]->choose("Kind", "c"));
  EXPECT_THAT(numbers, IsEmpty());
  EXPECT_THAT(indexes, IsEmpty());
}

TEST_F(FakeWindowsTest, DoWithoutSomebodyToTell) {
  const auto window = windows.makeWindow({.title = "", .elements = {Platform::NumberField{"Number", 1, 1, 9}}});
  EXPECT_TRUE(windows.made[0]->enter("Number", 7));
}

}  // namespace
