#include <gmock/gmock.h>

#include "DeskloomSDK/Host/SDKError.h"

using DeskloomSDK::makeError;

namespace {

TEST(SDKError, HasAnyIntegerForItsCode) {
  for (const int code : {0, 1, 2, 7, -1})
    EXPECT_EQ(makeError(code, "", "").code(), code);
  EXPECT_EQ(DeskloomSDK::ErrorCode::couldNotCreateURL, 0);
  EXPECT_EQ(DeskloomSDK::ErrorCode::couldNotRunScript, 1);
  EXPECT_EQ(DeskloomSDK::ErrorCode::couldNotReadScriptOutput, 2);
}

TEST(SDKError, HasTheRuntimesDomainAndBothTexts) {
  const auto error = makeError(7, "what", "");
  EXPECT_EQ(error.domain(), "com.quillary.DeskloomSDK");
  EXPECT_THAT(error.userInfo(),
              testing::ElementsAre(Platform::Error::UserInfoEntry{Platform::localizedDescriptionKey, "what"},
                                   Platform::Error::UserInfoEntry{Platform::localizedFailureReasonKey, ""}));
  EXPECT_EQ(makeError(7, "what", "why").localizedFailureReason(), "why");
}

}  // namespace
