#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "UpdateCheck/Version.h"

namespace {

using UpdateCheck::Version;

/// Each comes before all those after it.
const std::vector<std::string> ascending = {
    "",      "0.0.1",   "0.1",       "0.1.2",    "0.9",        "0.10",       "1.0a1",       "1.0 alpha",
    "1.0b1", "1.0b2",   "1.0b10",    "1.0 beta", "1.0rc",      "1.0",        "1.0.1",       "1.1",
    "1.9",   "1.10",    "2.0-alpha", "2.0-beta", "2.0-beta.1", "2.0-beta.2", "2.0-beta.10", "2.0-rc.1",
    "2.0",   "2.0.0.1", "10",        "4000.1",   "20261121"};

TEST(Version, OrdersAsPublishersExpect) {
  for (std::size_t left = 0; left < ascending.size(); ++left)
    for (std::size_t right = 0; right < ascending.size(); ++right)
      EXPECT_EQ(Version(ascending[left]) <=> Version(ascending[right]), left <=> right)
          << ascending[left] << " and " << ascending[right];
}

TEST(Version, CountsMissingNumbersAsZero) {
  EXPECT_EQ(Version("1.0"), Version("1.0.0"));
  EXPECT_EQ(Version("1"), Version("1.0"));
  EXPECT_EQ(Version("1."), Version("1"));
  EXPECT_EQ(Version(""), Version("0"));
}

TEST(Version, IgnoresZerosBeforeTheWordOfAPreRelease) {
  EXPECT_EQ(Version("2.0.0b1"), Version("2b1"));
  EXPECT_LT(Version("2b1"), Version("2.0.0b2"));
  EXPECT_LT(Version("2.0.0b1"), Version("2.0b2"));
}

TEST(Version, IgnoresHowPartsAreSeparated) {
  EXPECT_EQ(Version("2.0-beta.2"), Version("2.0 beta_2"));
  EXPECT_EQ(Version("1-2_3 4"), Version("1.2.3.4"));
  EXPECT_EQ(Version("2.0b1"), Version("2.0.b.1"));
}

TEST(Version, IgnoresTheCaseOfWords) {
  EXPECT_EQ(Version("2.0-RC1"), Version("2.0-rc1"));
  EXPECT_LT(Version("2.0 Beta"), Version("2.0 rc"));
}

TEST(Version, IgnoresLeadingZeros) {
  EXPECT_EQ(Version("1.007"), Version("1.7"));
  EXPECT_LT(Version("1.009"), Version("1.10"));
}

TEST(Version, ComparesNumbersOfAnySize) {
  const std::string nines(5000, '9');
  EXPECT_LT(Version("1." + nines), Version("1.1" + std::string(5000, '0')));
  EXPECT_LT(Version("1.18446744073709551615"), Version("1.18446744073709551616"));
  EXPECT_LT(Version("2"), Version(nines));
}

TEST(Version, IgnoresBuildNumbers) {
  EXPECT_EQ(Version("1.0+20261121"), Version("1.0"));
  EXPECT_EQ(Version("1.0+g1a2b"), Version("1.0+7"));
}

TEST(Version, AcceptsAnyBytes) {
  EXPECT_EQ(Version("1.0\xff"), Version("1.0\xff"));
  EXPECT_LT(Version("1.0ü"), Version("1.0"));
  EXPECT_EQ(Version(std::string_view("1\0002", 3)), Version("1.2"));
}

}  // namespace
