#include <gtest/gtest.h>

#include "Platform/Fake/FakeServices.h"
#include "Platform/Services.h"

using Platform::Fake::FakeServices;

TEST(ServicesDeathTest, StopTheProcessIfNoneAreInstalled) {
  EXPECT_DEATH(Platform::services(), "Fatal error: No platform services are installed\\.");
}

TEST(ServicesDeathTest, StopTheProcessIfThereIsNoSharedApplication) {
  FakeServices desktop;
  desktop.services.application = nullptr;
  EXPECT_DEATH(Platform::sharedApplication(), "Fatal error: There is no shared application object\\.");
}

TEST(Services, AreThoseInstalledLastForAsLongAsTheyLive) {
  const FakeServices outer;
  {
    const FakeServices inner;
    EXPECT_EQ(&Platform::services(), &inner.services);
  }
  EXPECT_EQ(&Platform::services(), &outer.services);
}
