#include <gtest/gtest.h>

#include "DesktopSupport/ApplicationBus.h"

using DesktopSupport::applicationObjectPath;

TEST(ApplicationBus, PutsTheObjectOfAnApplicationAtThePathOfItsName) {
  EXPECT_EQ(applicationObjectPath("com.example.Some-App"), "/com/example/Some_App");
}

TEST(ApplicationBus, OpensTheURLsThatCanTravel) {
  const DesktopSupport::VariantHandle arguments =
      DesktopSupport::owned(DesktopSupport::openArguments({"a:b", "\xFF", std::string("c\0d", 3), "e"}));
  const DesktopSupport::CharsHandle text(g_variant_print(arguments.get(), FALSE));
  EXPECT_STREQ(text.get(), "(['a:b', 'e'], {})");
}
