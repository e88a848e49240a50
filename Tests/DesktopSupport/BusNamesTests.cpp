#include <string>

#include <gtest/gtest.h>

#include "DesktopSupport/Bus/BusNames.h"

namespace {

using namespace DesktopSupport;

TEST(BusNames, AreUniqueOrWellKnown) {
  for (const char* name : {"com.example.Some-App", "a.b", "_a._1", ":1.23", ":a.b-c"})
    EXPECT_TRUE(isBusName(name)) << name;
  for (const char* name : {"", ".", "a", "a.", ".a", "a..b", "1.a", "a.1", ":", ":1", "a.b c", "a.ü", ":1."})
    EXPECT_FALSE(isBusName(name)) << name;
  EXPECT_TRUE(isUniqueBusName(":1.2"));
  EXPECT_FALSE(isUniqueBusName("a.b"));
}

TEST(BusNames, OfInterfacesHaveNoHyphens) {
  EXPECT_TRUE(isInterfaceName("org.freedesktop.DBus"));
  EXPECT_FALSE(isInterfaceName("org.free-desktop.DBus"));
  EXPECT_FALSE(isInterfaceName(":1.2"));
}

TEST(BusNames, OfMembersHaveNoDots) {
  EXPECT_TRUE(isMemberName("Get_1"));
  for (const char* name : {"", "1Get", "Get.It", "Get-It", "Get It"})
    EXPECT_FALSE(isMemberName(name)) << name;
}

TEST(BusNames, HaveAtMost255Bytes) {
  const std::string longest = "a." + std::string(253, 'b');
  EXPECT_TRUE(isBusName(longest));
  EXPECT_TRUE(isInterfaceName(longest));
  EXPECT_FALSE(isBusName(longest + 'b'));
  EXPECT_FALSE(isInterfaceName(longest + 'b'));
  EXPECT_TRUE(isMemberName(std::string(255, 'b')));
  EXPECT_FALSE(isMemberName(std::string(256, 'b')));
}

TEST(BusSignature, NamesTypesThatDBusHas) {
  for (const char* signature : {"", "s", "sa{sv}", "a(ybnqiuxtdsogv)", "aaas", "h"})
    EXPECT_TRUE(isBusSignature(signature)) << signature;
  for (const char* signature : {"m", "ms", "()", "a()", "{sv}", "({sv})", "a{vs}", "a", "(s", "z", "r", "*"})
    EXPECT_FALSE(isBusSignature(signature)) << signature;
}

}  // namespace
