#include <utility>

#include <gtest/gtest.h>

#include "HostStandIn/BusName.h"

namespace {

using DesktopSupport::SessionBus;
using HostStandIn::BusName;

TEST(BusName, IsTakenOnce) {
  const auto bus = SessionBus::connect();
  ASSERT_TRUE(bus);
  {
    auto first = BusName::acquire(*bus, "com.quillary.Once");
    ASSERT_TRUE(first);
    const BusName moved(std::move(*first));
    EXPECT_FALSE(BusName::acquire(*bus, "com.quillary.Once"));
  }
  EXPECT_TRUE(BusName::acquire(*bus, "com.quillary.Once"));
}

TEST(BusName, MustBeAName) {
  const auto bus = SessionBus::connect();
  ASSERT_TRUE(bus);
  const auto name = BusName::acquire(*bus, "no name");
  ASSERT_FALSE(name);
  EXPECT_EQ(name.error().name, DesktopSupport::BusErrorName::invalidArguments);
}

}  // namespace
