#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "UpdateCheck/Appcast.h"

namespace {

using testing::HasSubstr;
using UpdateCheck::Appcast;
using UpdateCheck::AppcastItem;

std::string feed(const std::string& items) {
  return R"(<?xml version="1.0" encoding="utf-8"?>
    <rss version="2.0" xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle">
      <channel><title>Updates</title><link>https://example.com/channel</link>)" +
         items + "</channel></rss>";
}

std::string item(const std::string& contents) {
  return "<item>" + contents + "</item>";
}

std::string itemOf(const std::string& version) {
  return item("<sparkle:version>" + version + "</sparkle:version>");
}

AppcastItem only(const std::string& contents) {
  return Appcast::parse(feed(item(contents)))->items().at(0);
}

/// The version of the newest item, or "none" if there is no newer one.
std::string newest(const std::string& items, const std::string& version = "1.0",
                   const std::string& kernel = "6.1.0-13-amd64") {
  const auto found = Appcast::parse(feed(items))->newestAfter(version, kernel);
  return found ? *found->version : "none";
}

TEST(Appcast, ReadsAnItem) {
  const AppcastItem read = only(R"(
    <title>Version 2.0</title>
    <link> https://example.com/2.0
    </link>
    <sparkle:version>200</sparkle:version>
    <sparkle:shortVersionString>2.0</sparkle:shortVersionString>
    <sparkle:minimumSystemVersion>5.10</sparkle:minimumSystemVersion>
    <enclosure url="https://example.com/2.0.tar.gz" length="123" sparkle:os="linux"/>)");
  EXPECT_EQ(read.version, "200");
  EXPECT_EQ(read.shortVersion, "2.0");
  EXPECT_EQ(read.minimumSystemVersion, "5.10");
  EXPECT_EQ(read.link, "https://example.com/2.0");
  EXPECT_EQ(read.channel, std::nullopt);
  ASSERT_TRUE(read.enclosure);
  EXPECT_EQ(read.enclosure->operatingSystem, "linux");
}

TEST(Appcast, ReadsVersionsFromTheEnclosure) {
  const AppcastItem read = only("<enclosure url='u' sparkle:version='200' sparkle:shortVersionString='2.0'/>");
  EXPECT_EQ(read.version, "200");
  EXPECT_EQ(read.shortVersion, "2.0");
}

TEST(Appcast, PrefersTheVersionsOfTheItemItself) {
  const AppcastItem read = only(
      "<enclosure url='u' sparkle:version='1' sparkle:shortVersionString='a'/><sparkle:version>2</sparkle:version>");
  EXPECT_EQ(read.version, "2");
  EXPECT_EQ(read.shortVersion, "a");
}

TEST(Appcast, KnowsTheNamespaceOnlyByItsURI) {
  const auto appcast = Appcast::parse(
      "<rss xmlns:s='http://www.andymatuschak.org/xml-namespaces/sparkle' xmlns:sparkle='urn:other'><channel>"
      "<item><s:version>2</s:version></item><item><sparkle:version>3</sparkle:version></item></channel></rss>");
  EXPECT_EQ(appcast->items().at(0).version, "2");
  EXPECT_EQ(appcast->items().at(1).version, std::nullopt);
}

TEST(Appcast, JoinsTextThatComesInPieces) {
  EXPECT_EQ(only("<link>https://example.com/?a=1&amp;b=<![CDATA[2&c=3]]></link>").link,
            "https://example.com/?a=1&b=2&c=3");
}

TEST(Appcast, IgnoresElementsThatAreDeeperOrElsewhere) {
  const AppcastItem read = only(R"(
    <sparkle:deltas><enclosure url="delta" sparkle:version="9"/><link>https://example.com/delta</link></sparkle:deltas>
    <description><p><sparkle:version>8</sparkle:version></p></description>)");
  EXPECT_EQ(read.version, std::nullopt);
  EXPECT_EQ(read.link, std::nullopt);
  EXPECT_FALSE(read.enclosure);
  EXPECT_TRUE(Appcast::parse(feed("<group>" + itemOf("2") + "</group>"))->items().empty());
}

TEST(Appcast, KeepsItemsApart) {
  const auto appcast = Appcast::parse(
      feed(item("<link>https://a</link><enclosure url='u' sparkle:version='2'/>") + item("<title>nothing</title>")));
  EXPECT_EQ(appcast->items().at(1).link, std::nullopt);
  EXPECT_EQ(appcast->items().at(1).version, std::nullopt);
}

TEST(Appcast, CountsEmptyTextsAsMissing) {
  const AppcastItem read = only("<sparkle:version> </sparkle:version><link/><enclosure url=''/>");
  EXPECT_EQ(read.version, std::nullopt);
  EXPECT_EQ(read.link, std::nullopt);
  EXPECT_FALSE(read.enclosure);
}

TEST(Appcast, CountsTextsThatAreTooLongAsMissing) {
  const std::string longest(Appcast::maximumText, '1');
  EXPECT_EQ(only("<sparkle:version>" + longest + "</sparkle:version>").version, longest);
  EXPECT_EQ(only("<sparkle:version>" + longest + "1</sparkle:version>").version, std::nullopt);
  EXPECT_EQ(only("<enclosure url='u' sparkle:version='" + longest + "1'/>").version, std::nullopt);
}

TEST(Appcast, TakesTheEnclosureForThisSystem) {
  EXPECT_EQ(only("<enclosure url='u' sparkle:version='1' sparkle:os='windows'/>"
                 "<enclosure url='u' sparkle:version='2' sparkle:os='linux'/>"
                 "<enclosure url='u' sparkle:version='3' sparkle:os='macos'/>")
                .version,
            "2");
  EXPECT_EQ(only("<enclosure url='u' sparkle:version='1'/><enclosure url='u' sparkle:version='2'/>").version, "1");
}

TEST(Appcast, LinksOnlyToHTTPS) {
  const auto pageOf = [](const std::string& link) {
    const auto page = only("<link><![CDATA[" + link + "]]></link>").page();
    return page ? page->absoluteString() : "none";
  };
  EXPECT_FALSE(only("<title>2.0</title>").page());
  EXPECT_EQ(pageOf("https://example.com/2.0?a=1&b=%20#top"), "https://example.com/2.0?a=1&b=%20#top");
  EXPECT_EQ(pageOf("HTTPS://example.com/"), "HTTPS://example.com/");
  for (const char* link : {"http://example.com/", "file:///srv/2.0.html", "file:///etc/passwd", "javascript:alert(1)",
                           "2.0.html", "//example.com/", "https", "https://example.com/a b", "deskloomplugin://x"})
    EXPECT_EQ(pageOf(link), "none") << link;
}

TEST(Appcast, RefusesWhatIsNotAFeed) {
  EXPECT_EQ(Appcast::parse("").error(), "no element found in line 1");
  EXPECT_EQ(Appcast::parse("<html><body/></html>").error(), "it is not an appcast");
  EXPECT_EQ(Appcast::parse("<rss/>").error(), "it is not an appcast");
  EXPECT_THAT(Appcast::parse("404 not found").error(), HasSubstr("syntax error"));
  EXPECT_THAT(Appcast::parse(feed("<item>")).error(), HasSubstr("mismatched tag"));
}

TEST(Appcast, SurvivesAnyDamage) {
  const std::string whole = feed(itemOf("2") + item("<enclosure url='u' sparkle:os='linux' sparkle:version='3'/>"));
  ASSERT_TRUE(Appcast::parse(whole));
  for (std::size_t length = 0; length < whole.size(); ++length)
    EXPECT_FALSE(Appcast::parse(std::string_view(whole).substr(0, length))) << length;
  for (std::size_t place = 0; place < whole.size(); ++place)
    for (const char byte : {'\0', '\xff', '<', '>', '&', '"', '/', ' ', '!'}) {
      std::string damaged = whole;
      damaged[place] = byte;
      const auto appcast = Appcast::parse(damaged);
      EXPECT_TRUE(!appcast || appcast->items().size() <= 2) << damaged;
    }
}

TEST(Appcast, MayHaveNoItems) {
  EXPECT_EQ(newest(""), "none");
}

TEST(Appcast, PicksTheNewestVersionInAnyOrder) {
  EXPECT_EQ(newest(itemOf("1.9") + itemOf("1.10") + itemOf("1.2")), "1.10");
}

TEST(Appcast, PicksTheFirstOfEquivalentVersions) {
  EXPECT_EQ(newest(itemOf("2.0") + itemOf("2.0.0")), "2.0");
}

TEST(Appcast, PicksOnlyNewerVersions) {
  EXPECT_EQ(newest(itemOf("1.0") + itemOf("0.9") + itemOf("1.0.0") + itemOf("1.0rc1")), "none");
}

TEST(Appcast, PicksNoItemWithoutAVersion) {
  EXPECT_EQ(newest(item("<title>9.0</title>") + item("<sparkle:shortVersionString>9</sparkle:shortVersionString>")),
            "none");
}

TEST(Appcast, PicksNoItemForAChannel) {
  EXPECT_EQ(newest(item("<sparkle:version>3</sparkle:version><sparkle:channel>beta</sparkle:channel>") + itemOf("2")),
            "2");
}

TEST(Appcast, PicksNoItemForAnotherSystem) {
  const auto enclosure = [](const std::string& version, const std::string& system) {
    return item("<enclosure url='u' sparkle:version='" + version + "' sparkle:os='" + system + "'/>");
  };
  EXPECT_EQ(newest(enclosure("4", "windows") + enclosure("3", "macos") + enclosure("2", "linux")), "2");
}

TEST(Appcast, ComparesTheMinimumOfAnItemForLinuxWithTheKernel) {
  const auto items = [](const std::string& minimum) {
    return item("<sparkle:version>2</sparkle:version><sparkle:minimumSystemVersion>" + minimum +
                "</sparkle:minimumSystemVersion><enclosure url='u' sparkle:os='linux'/>");
  };
  EXPECT_EQ(newest(items("6.1")), "2");
  EXPECT_EQ(newest(items("6.1.0")), "2");
  EXPECT_EQ(newest(items("6.2")), "none");
  EXPECT_EQ(newest(items("6.10"), "1.0", "6.9.3-arch1-1"), "none");
  EXPECT_EQ(newest(items("6.1"), "1.0", "6.1-rc4"), "2");
}

TEST(Appcast, IgnoresTheMinimumOfAnItemForEverySystem) {
  EXPECT_EQ(newest(item("<sparkle:version>2</sparkle:version>"
                        "<sparkle:minimumSystemVersion>10.13</sparkle:minimumSystemVersion><enclosure url='u'/>")),
            "2");
}

}  // namespace
