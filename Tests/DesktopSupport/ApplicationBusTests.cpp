#include <string>

#include <gtest/gtest.h>

#include "DesktopSupport/Bus/ApplicationBus.h"

using DesktopSupport::applicationObjectPath;

TEST(ApplicationBus, PutsTheObjectOfAnApplicationAtThePathOfItsName) {
  EXPECT_EQ(applicationObjectPath("com.example.Some-App"), "/com/example/Some_App");
}

TEST(ApplicationBus, KnowsWhatCanBeAnApplicationsName) {
  for (const char* name : {"com.example.Some-App", "a.b", "_a._1"})
    EXPECT_TRUE(DesktopSupport::isApplicationName(name)) << name;
  for (const char* name :
       {"", "Plugin", "com.example.", ".com", "com.1st", ":1.2", "com.example/Plugin", "com.ex ample"})
    EXPECT_FALSE(DesktopSupport::isApplicationName(name)) << name;
}

namespace {

std::string printed(GVariant* arguments) {
  const DesktopSupport::VariantHandle handle = DesktopSupport::owned(arguments);
  return DesktopSupport::CharsHandle(g_variant_print(handle.get(), FALSE)).get();
}

}  // namespace

TEST(ApplicationBus, OpensTheURLIfItCanTravel) {
  EXPECT_EQ(printed(DesktopSupport::openArguments("a:b")), "(['a:b'], {})");
  EXPECT_EQ(printed(DesktopSupport::openArguments("\xFF")), "([], {})");
  EXPECT_EQ(printed(DesktopSupport::openArguments(std::string("c\0d", 3))), "([], {})");
}

TEST(ApplicationBus, PassesPlatformDataOn) {
  const auto data = [] { return g_variant_new_parsed("{'key': <1>}"); };
  EXPECT_EQ(printed(DesktopSupport::openArguments("a:b", data())), "(['a:b'], {'key': <1>})");
  EXPECT_EQ(printed(DesktopSupport::activateArguments(data())), "({'key': <1>},)");
  EXPECT_EQ(printed(DesktopSupport::activateArguments()), "({},)");
}
