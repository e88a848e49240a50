#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "AppleScript/Values/Application.h"

namespace AppleScript {
namespace {

TEST(Arguments, AreMissingWhereNotGiven) {
  const Arguments arguments;
  EXPECT_FALSE(arguments.hasDirect());
  EXPECT_TRUE(arguments.direct().isMissing());
  EXPECT_TRUE(arguments.labelled("action").isMissing());
  EXPECT_EQ(arguments.directText().error().number, ErrorNumber::missingParameter);
  EXPECT_EQ(arguments.labelledText("action").error().number, ErrorNumber::missingParameter);
}

TEST(Arguments, AreCoercedToText) {
  Arguments arguments{Value(7)};
  arguments.setLabelled("action bundle id", List{"a", 1});
  EXPECT_EQ(*arguments.directText(), "7");
  EXPECT_EQ(*arguments.labelledText("action bundle id"), "a1");
}

TEST(Arguments, WithoutATextFormAreRefused) {
  const Arguments arguments{Record(std::make_shared<const std::vector<std::string>>(1, "a"), {1})};
  EXPECT_EQ(arguments.directText().error().number, ErrorNumber::cantCoerce);
  EXPECT_EQ(arguments.directText().error().message, "Can’t make {a:1} into type text.");
}

}  // namespace
}  // namespace AppleScript
