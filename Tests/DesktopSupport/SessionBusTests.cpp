#include <gtest/gtest.h>

#include "DesktopSupport/Bus/SessionBus.h"
#include "Tests/Support/EnvironmentVariable.h"

namespace {

using namespace std::string_literals;
using DesktopSupport::busString;
namespace BusErrorName = DesktopSupport::BusErrorName;

TEST(BusString, TakesAnyUTF8Text) {
  for (const std::string& text : {""s, "Größe\n🙂"s, std::string(1 << 20, 'x')}) {
    const auto string = busString(text);
    ASSERT_TRUE(string);
    EXPECT_EQ(g_variant_get_string(string->get(), nullptr), text);
  }
}

TEST(BusString, RefusesWhatDBusCannotCarry) {
  for (const std::string& text : {"a\0b"s, "\0"s, "\xff"s, "\xed\xa0\x80"s}) {
    const auto string = busString(text);
    ASSERT_FALSE(string);
    EXPECT_EQ(string.error().name, BusErrorName::invalidArguments);
  }
}

}  // namespace
