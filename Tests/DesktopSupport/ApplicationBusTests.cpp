#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "DesktopSupport/ApplicationBus.h"

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

TEST(ApplicationBus, OpensTheURLsThatCanTravel) {
  const DesktopSupport::VariantHandle arguments =
      DesktopSupport::owned(DesktopSupport::openArguments({"a:b", "\xFF", std::string("c\0d", 3), "e"}));
  const DesktopSupport::CharsHandle text(g_variant_print(arguments.get(), FALSE));
  EXPECT_STREQ(text.get(), "(['a:b', 'e'], {})");
}

TEST(ApplicationBus, PutsAsManyURLsIntoOneOpenAsAnArrayHolds) {
  using DesktopSupport::urlsInOneOpen;
  const std::string half((32 << 20) - 8, 'x');  // with what D-Bus adds, half of 64 MiB
  const std::string more((32 << 20) - 7, 'x');
  const std::string longest(DesktopSupport::longestOpenURL, 'x');
  EXPECT_EQ(urlsInOneOpen({}), 0U);
  EXPECT_EQ(urlsInOneOpen(std::vector<std::string>{"a:b", "c:d", "e:f"}), 3U);
  EXPECT_EQ(urlsInOneOpen(std::vector{half, half, half}), 2U);
  EXPECT_EQ(urlsInOneOpen(std::vector{half, more}), 1U);
  EXPECT_EQ(urlsInOneOpen(std::vector{longest, longest}), 1U);
}
