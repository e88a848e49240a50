#include "Tests/TestSupport/CompositorContract.h"

namespace {

TEST_F(CompositorTest, ListsTheLowestWindowFirst) {
  programs.push_back(startGTKWindows("com.example.A", {"1", "2", "3"}));
  EXPECT_TRUE(compositor->focus("2"));
  EXPECT_TRUE(compositor->focus("3"));
  EXPECT_TRUE(compositor->focus("1"));
  EXPECT_THAT(titles(), ElementsAre("2", "3", "1"));
}

TEST_F(CompositorTest, FocusesTheLowestWindowWithTheTitle) {
  programs.push_back(startGTKWindows("com.example.A", {"same", "same"}));
  const auto lowest = compositor->windows().front().id;
  EXPECT_TRUE(compositor->focus("same"));
  EXPECT_EQ(compositor->windows().back().id, lowest);
  EXPECT_TRUE(compositor->focus("same"));
  EXPECT_EQ(compositor->windows().front().id, lowest);
}

}  // namespace
