#include <string>

#include <gtest/gtest.h>

#include "UpdateCheck/UpdateSettings.h"

namespace {

using namespace std::chrono_literals;
using Platform::URL;
using UpdateCheck::UpdateSettings;

const std::string bundle = "[Bundle]\nIdentifier=com.example.Plugin\nName=The Plugin\nVersion=1.5\n\n";
const std::string webFeed = "FeedURL=https://example.com/appcast.xml\n";
const std::string localFeed = "FeedURL=file:///srv/appcast.xml\n";

auto parse(const std::string& updates) {
  return UpdateSettings::parse(bundle + "[Updates]\n" + updates);
}

TEST(UpdateSettings, AreReadFromInfoIni) {
  const auto settings = parse(webFeed + "Interval=7200\nPublicKey=a+b/c=\n");
  ASSERT_TRUE(settings && *settings);
  EXPECT_EQ((*settings)->identifier, "com.example.Plugin");
  EXPECT_EQ((*settings)->name, "The Plugin");
  EXPECT_EQ((*settings)->version, "1.5");
  EXPECT_EQ((*settings)->feed.absoluteString(), "https://example.com/appcast.xml");
  EXPECT_EQ((*settings)->interval, 2h);
  EXPECT_EQ((*settings)->publicKey, "a+b/c=");
}

TEST(UpdateSettings, NeedNoMoreThanAFeed) {
  const auto settings = parse(webFeed);
  ASSERT_TRUE(settings && *settings);
  EXPECT_EQ((*settings)->interval, 24h);
  EXPECT_EQ((*settings)->publicKey, std::nullopt);
}

TEST(UpdateSettings, AreNullWithoutAFeed) {
  for (const std::string& information : {std::string(), std::string("no key file"), bundle, bundle + "[Updates]\n",
                                         bundle + "[Updates]\nFeedURL=\n", "[Bundle]\n" + webFeed}) {
    const auto settings = UpdateSettings::parse(information);
    EXPECT_TRUE(settings && !*settings) << information;
  }
}

// The key is read by LinuxUpdater, and only there, so that there cannot be two interpretations of it.
TEST(UpdateSettings, IgnoreAutomaticChecks) {
  for (const std::string value : {"true", "false", "no", ""}) {
    const auto settings = parse(webFeed + "AutomaticChecks=" + value + "\n");
    EXPECT_TRUE(settings && *settings) << value;
  }
}

TEST(UpdateSettings, AreRefusedIfTheyAreNotUTF8) {
  EXPECT_EQ(parse(webFeed + "PublicKey=\xFF\n").error(), "Info.ini is not UTF-8");
}

TEST(UpdateSettings, AskAServerAtMostOnceAnHour) {
  EXPECT_EQ((*parse(webFeed + "Interval=0\n"))->interval, 1h);
  EXPECT_EQ((*parse(webFeed + "Interval=3601\n"))->interval, 3601s);
  EXPECT_EQ((*parse("FeedURL=HTTPS://example.com/\nInterval=1\n"))->interval, 1h);
}

TEST(UpdateSettings, ReadAFeedOnDiskAsOftenAsTheySay) {
  EXPECT_EQ((*parse(localFeed + "Interval=0\n"))->interval, 0s);
}

TEST(UpdateSettings, RefuseAnIntervalThatIsNotANumber) {
  for (const std::string text : {"", "-1", "1h", "1.5", " ", "99999999999999999999"})
    EXPECT_EQ(parse(webFeed + "Interval=" + text + "\n").error(), "Interval is not a number of seconds") << text;
}

TEST(UpdateSettings, RefuseAFeedThatIsNeitherHTTPSNorAFile) {
  for (const std::string feed :
       {"http://example.com/", "ftp://example.com/", "/srv/appcast.xml", "https", "data:,x", "https://example.com/a b"})
    EXPECT_EQ(parse("FeedURL=" + feed + "\n").error(), "FeedURL is neither an https: nor a file: URL") << feed;
}

TEST(UpdateSettings, RefuseABundleWithoutIdentifierOrVersion) {
  const auto parseBundle = [](const std::string& lines) {
    return UpdateSettings::parse("[Updates]\n" + webFeed + "[Bundle]\n" + lines).error();
  };
  for (const std::string identifier : {"", "../../etc", "a/b", ".hidden", "a b", "ü"})
    EXPECT_EQ(parseBundle("Version=1\nIdentifier=" + identifier + "\n"), "the bundle has no valid identifier");
  EXPECT_EQ(parseBundle("Identifier=a.b\n"), "the bundle has no version");
  EXPECT_EQ(UpdateSettings::parse("[Updates]\n" + webFeed).error(), "the bundle has no valid identifier");
}

TEST(UpdateSettings, UseTheIdentifierIfThereIsNoName) {
  const auto settings = UpdateSettings::parse("[Bundle]\nIdentifier=a.b\nVersion=1\n[Updates]\n" + webFeed);
  EXPECT_EQ((*settings)->name, "a.b");
}

TEST(UpdateSettings, MakeAUserAgentThatIsAllowedInItsHeader) {
  UpdateSettings settings = **parse(webFeed);
  EXPECT_EQ(settings.userAgent(), "The-Plugin/1.5");
  settings.name = "P\r\nCookie: 1";
  EXPECT_EQ(settings.userAgent(), "P--Cookie--1/1.5");
}

}  // namespace
