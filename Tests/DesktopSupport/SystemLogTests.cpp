#include <gtest/gtest.h>

#include "DesktopSupport/System/SystemLog.h"

TEST(SystemLog, HasOneLineForAMessageThatDoesNothingToATerminal) {
  testing::internal::CaptureStderr();
  DesktopSupport::writeToSystemLog("The host said: a\nb\r\n\x1b[2J\a\u202Etxt\xff");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "The host said: a b [2J\\u{202E}txt\uFFFD\n");
}

TEST(SystemLog, KeepsTheLinesOfAMessageThatHasSeveral) {
  testing::internal::CaptureStderr();
  DesktopSupport::writeLinesToSystemLog("error: {\n    a\x1b[2J\u202E;\n}");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "error: {\n    a[2J\\u{202E};\n}\n");
}
