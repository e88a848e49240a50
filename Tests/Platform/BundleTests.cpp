#include <gtest/gtest.h>

#include "Platform/Bundle.h"

namespace {

TEST(FormattedText, HasTheArgumentInPlaceOfThePlaceholder) {
  EXPECT_EQ(Platform::formatted("Version %@", "1.2"), "Version 1.2");
  EXPECT_EQ(Platform::formatted("%@について", "Gleanery"), "Gleaneryについて");
  EXPECT_EQ(Platform::formatted("%@", "%@"), "%@");
}

TEST(FormattedText, ReplacesTheFirstPlaceholderOnly) {
  EXPECT_EQ(Platform::formatted("%@ %@", "a"), "a %@");
}

TEST(FormattedText, IsTheTextItselfWithoutAPlaceholder) {
  EXPECT_EQ(Platform::formatted("100 %", "a"), "100 %");
  EXPECT_EQ(Platform::formatted("", "a"), "");
}

}  // namespace
