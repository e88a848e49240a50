#include <type_traits>

#include <gtest/gtest.h>

#include "DeskloomSDK/DeskloomPluginURL.h"

using DeskloomSDK::DeskloomPluginURL;

namespace {

std::optional<DeskloomPluginURL> parse(std::string_view text) {
  return DeskloomPluginURL::parse(Platform::URL::parse(std::string(text)).value());
}

TEST(DeskloomPluginURL, NamesTheActionAndItsIdentifier) {
  const auto url = parse("deskloomplugin://run/ABC-1");
  ASSERT_TRUE(url);
  EXPECT_EQ(url->scheme(), "deskloomplugin");
  EXPECT_EQ(url->action(), "run");
  EXPECT_EQ(url->actionID, "ABC-1");
}

TEST(DeskloomPluginURL, IsOnlyMadeByParsing) {
  EXPECT_FALSE(std::is_aggregate_v<DeskloomPluginURL>);
  EXPECT_FALSE(std::is_default_constructible_v<DeskloomPluginURL>);
  EXPECT_FALSE((std::is_constructible_v<DeskloomPluginURL, std::string, std::string, std::optional<std::string>>));
  EXPECT_FALSE((std::is_constructible_v<DeskloomPluginURL, std::string, std::optional<std::string>>));
}

TEST(DeskloomPluginURL, LetsOnlyItsIdentifierBeChanged) {
  using Text = const std::string&;
  EXPECT_TRUE((std::is_same_v<decltype(std::declval<DeskloomPluginURL&>().scheme()), Text>));
  EXPECT_TRUE((std::is_same_v<decltype(std::declval<DeskloomPluginURL&>().action()), Text>));
  auto url = parse("deskloomplugin://run/A").value();
  const auto copy = url;
  url.actionID = "B";
  EXPECT_EQ(url.actionID, "B");
  EXPECT_EQ(copy.actionID, "A") << "a copy is a value of its own";
}

TEST(DeskloomPluginURL, HasNoIdentifierWithoutExactlyOneSegment) {
  for (const auto* text : {"deskloomplugin://run", "deskloomplugin://run/", "deskloomplugin://run/a/b"}) {
    const auto url = parse(text);
    ASSERT_TRUE(url) << text;
    EXPECT_EQ(url->action(), "run") << text;
    EXPECT_EQ(url->actionID, std::nullopt) << text;
  }
}

TEST(DeskloomPluginURL, CountsNoSegmentForATrailingSlash) {
  EXPECT_EQ(parse("deskloomplugin://run/ID/")->actionID, "ID");
}

TEST(DeskloomPluginURL, KeepsTheCaseOfTheAction) {
  EXPECT_EQ(parse("deskloomplugin://RUN/x")->action(), "RUN");
}

TEST(DeskloomPluginURL, DecodesPercentEscapes) {
  const auto url = parse("deskloomplugin://r%75n/a%20b");
  EXPECT_EQ(url->action(), "run");
  EXPECT_EQ(url->actionID, "a b");
}

TEST(DeskloomPluginURL, RequiresItsScheme) {
  for (const auto* text : {"deskloomplugins://run/ID", "deskloom://run/ID", "other://run/ABC-1",
                           "Deskloomplugin://run/ID", "run/ID", "//run/ID"})
    EXPECT_FALSE(parse(text)) << text;
}

TEST(DeskloomPluginURL, RequiresAHost) {
  EXPECT_FALSE(parse("deskloomplugin:run"));
  EXPECT_FALSE(parse("deskloomplugin:///run"));
  EXPECT_FALSE(parse("deskloomplugin:/run/ID"));
}

}  // namespace
