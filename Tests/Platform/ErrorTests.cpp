#include <csignal>

#include <gmock/gmock.h>

#include "Platform/Error.h"

using Platform::Error;
using testing::ElementsAre;

TEST(Error, CarriesItsDomainItsCodeAndExactlyTwoEntries) {
  const Error error("com.example", 7, "What happened", "Why");
  EXPECT_EQ(error.domain(), "com.example");
  EXPECT_EQ(error.code(), 7);
  EXPECT_THAT(error.userInfo(), ElementsAre(Error::UserInfoEntry{Platform::localizedDescriptionKey, "What happened"},
                                            Error::UserInfoEntry{Platform::localizedFailureReasonKey, "Why"}));
}

TEST(Error, HasItsFailureReasonEvenIfItIsEmpty) {
  const Error error("com.example", 0, "What happened", "");
  ASSERT_EQ(error.userInfo().size(), 2U);
  EXPECT_EQ(error.localizedFailureReason(), "");
}

TEST(FatalErrorDeathTest, PrintsItsMessageAndPlaceAndAborts) {
  EXPECT_EXIT(Platform::fatalError("Nothing works."), testing::KilledBySignal(SIGABRT),
              "^Fatal error: Nothing works\\.: file ErrorTests\\.cpp, line [0-9]+\n$");
}
