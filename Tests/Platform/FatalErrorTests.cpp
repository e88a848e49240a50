#include <csignal>

#include <gtest/gtest.h>

#include "Platform/FatalError.h"

TEST(FatalErrorDeathTest, PrintsItsMessageAndPlaceAndAborts) {
  EXPECT_EXIT(Platform::fatalError("Nothing works."), testing::KilledBySignal(SIGABRT),
              "^Fatal error: Nothing works\\.: file FatalErrorTests\\.cpp, line [0-9]+\n$");
}
