#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "BrowserSessions/Chromium/SessionReplay.h"

namespace BrowserSessions {
namespace {

constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();

class History : public testing::Test {
 protected:
  // Puts a page at each of these places, named after its place.
  void pages(const std::vector<std::int32_t>& places) {
    for (const std::int32_t place : places)
      history_.put(place, {std::string_view("0123456789").substr(static_cast<std::size_t>(place), 1), {}});
  }

  [[nodiscard]] std::string current() const {
    const auto page = history_.current();
    return page ? std::string(page->url) : "none";
  }

  TabHistory history_;
};

TEST_F(History, HasNoCurrentPageWithoutPages) {
  EXPECT_EQ(current(), "none");
  history_.select(0);
  history_.remove(0, 1);
  history_.removeFrom(0);
  EXPECT_EQ(current(), "none");
}

TEST_F(History, ShowsTheSelectedPageInWhateverOrderTheyCome) {
  pages({2, 0, 1});
  for (const std::int32_t place : {1, 0, 2}) {
    history_.select(place);
    EXPECT_EQ(current(), std::to_string(place));
  }
}

TEST_F(History, ShowsTheNextPageWhereThePlaceHasNone) {
  pages({3, 4, 7});
  EXPECT_EQ(current(), "3") << "nothing selected";
  history_.select(0);
  EXPECT_EQ(current(), "3");
  history_.select(5);
  EXPECT_EQ(current(), "7");
  history_.select(9);
  EXPECT_EQ(current(), "7") << "the last one, as none follows";
}

TEST_F(History, HasTheLaterPageOfTwoAtOnePlace) {
  pages({0, 1});
  history_.put(1, {"new", "title"});
  history_.select(1);
  EXPECT_EQ(current(), "new");
  EXPECT_EQ(history_.current()->title, "title");
}

TEST_F(History, KeepsTheCurrentPageWhereSomeInFrontOfItAreRemoved) {
  pages({0, 1, 2, 3, 4});
  history_.select(3);
  history_.remove(0, 2);
  EXPECT_EQ(current(), "3");
  history_.select(2);
  EXPECT_EQ(current(), "4") << "which has moved up";
}

TEST_F(History, KeepsTheCurrentPageWhereSomeBehindItAreRemoved) {
  pages({0, 1, 2, 3, 4});
  history_.select(1);
  history_.remove(2, 2);
  EXPECT_EQ(current(), "1");
  history_.select(2);
  EXPECT_EQ(current(), "4");
}

TEST_F(History, ShowsThePageInFrontWhereTheCurrentOneIsRemoved) {
  pages({0, 1, 2, 3});
  history_.select(2);
  history_.remove(1, 2);
  EXPECT_EQ(current(), "0");
  history_.remove(0, 1);
  EXPECT_EQ(current(), "3") << "the first one, as none is in front";
}

TEST_F(History, LosesThePagesFromAPlaceOn) {
  pages({0, 1, 2, 3});
  history_.select(3);
  history_.removeFrom(2);
  EXPECT_EQ(current(), "1");
  history_.removeFrom(smallest);
  EXPECT_EQ(current(), "none");
}

TEST_F(History, IsNotChangedByRangesThatAreNone) {
  pages({0, 1, 2});
  history_.select(1);
  for (const auto& [first, count] : {std::pair(-1, 2), {0, 0}, {0, -1}, {smallest, smallest}, {largest, largest}}) {
    history_.remove(first, count);
    EXPECT_EQ(current(), "1") << first << ", " << count;
  }
  history_.remove(0, largest);
  EXPECT_EQ(current(), "none");
}

TEST_F(History, HasNoPageAtANegativePlace) {
  history_.put(-1, {"x", {}});
  history_.put(smallest, {"x", {}});
  EXPECT_EQ(current(), "none");
  history_.put(largest, {"end", {}});
  history_.select(smallest);
  EXPECT_EQ(current(), "end");
}

TEST_F(History, KeepsAllPagesThatABrowserKeeps) {
  std::vector<std::string> urls;
  for (int place = 0; place < 100; ++place)
    urls.push_back(std::to_string(place));
  for (int place = 0; place < 100; ++place)
    history_.put(place, {urls[static_cast<std::size_t>(place)], {}});
  history_.select(99);
  EXPECT_EQ(current(), "99");
}

TEST_F(History, TakesManyChangesOfManyPagesInShortTime) {
  for (std::int32_t place = 0; place < 100'000; ++place)
    history_.put(place * 10 + 1'000'000, {"x", {}});
  for (int change = 0; change < 100'000; ++change)
    history_.remove(0, 1);
  EXPECT_EQ(current(), "x");
}

}  // namespace
}  // namespace BrowserSessions
