#include <gtest/gtest.h>

#include "DesktopSupport/System/Paths.h"

namespace {

using DesktopSupport::isInside;

TEST(Path, IsInsideAFolder) {
  EXPECT_TRUE(isInside("/opt/tool", "/opt"));
  EXPECT_TRUE(isInside("/opt//a/tool", "/opt/a"));
  EXPECT_TRUE(isInside("/opt", "/opt"));
  EXPECT_TRUE(isInside("/opt", "/"));
}

TEST(Path, IsNotInsideAFolderWhoseNameBeginsLikeIts) {
  EXPECT_FALSE(isInside("/option/tool", "/opt"));
  EXPECT_FALSE(isInside("/opt", "/opt/tool"));
  EXPECT_FALSE(isInside("opt/tool", "/opt"));
  EXPECT_FALSE(isInside("", "/opt"));
}

}  // namespace
