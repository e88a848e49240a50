#include <climits>

#include <gtest/gtest.h>

#include "Platform/WindowContent.h"

using Platform::Choice;
using Platform::NumberField;

namespace {

TEST(NumberField, TakesANumberOutsideItsBoundsToTheNearerOne) {
  const NumberField field{.label = "", .minimum = -3, .maximum = 7};
  EXPECT_EQ(field.nearest(INT_MIN), -3);
  EXPECT_EQ(field.nearest(-3), -3);
  EXPECT_EQ(field.nearest(4), 4);
  EXPECT_EQ(field.nearest(8), 7);
  EXPECT_EQ(field.nearest(INT_MAX), 7);
}

TEST(NumberField, HasItsMinimumAloneIfTheBoundsAreTheWrongWayRound) {
  const NumberField field{.label = "", .minimum = 5, .maximum = 1};
  for (const int number : {0, 1, 3, 5, 9})
    EXPECT_EQ(field.nearest(number), 5);
}

TEST(Choice, ShowsTheFirstOptionForOneThatDoesNotExist) {
  const Choice choice{.label = "", .options = {"a", "b"}};
  EXPECT_EQ(choice.existing(1), 1U);
  EXPECT_EQ(choice.existing(2), 0U);
  EXPECT_EQ(Choice{.label = ""}.existing(2), 0U);
}

}  // namespace
