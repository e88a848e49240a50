#include <array>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/UpdateCheck/HTTPSServer.h"
#include "Tests/UpdateCheck/SigningKey.h"
#include "UpdateCheck/UpdateFeed.h"

namespace {

using Platform::URL;
using testing::HasSubstr;
using testing::StartsWith;
using UpdateCheck::AppcastItem;
using UpdateCheck::UpdateFeed;
using UpdateCheck::UpdateSettings;

UpdateSettings settingsFor(const URL& feed) {
  return {.identifier = "com.example.Plugin",
          .name = "Plugin",
          .version = "1.0",
          .feed = feed,
          .interval = std::chrono::seconds(0),
          .publicKey = std::nullopt};
}

std::string appcast(const std::string& items) {
  return "<rss xmlns:sparkle='http://www.andymatuschak.org/xml-namespaces/sparkle'><channel>" + items +
         "</channel></rss>";
}

AppcastItem itemWith(const std::string& url, const std::optional<std::string>& signature) {
  AppcastItem item;
  item.version = "2.0";
  item.enclosure = UpdateCheck::Enclosure{
      .url = url, .version = {}, .shortVersion = {}, .signature = signature, .operatingSystem = {}};
  return item;
}

std::expected<std::optional<AppcastItem>, std::string> loadNewerItem(const UpdateFeed& feed) {
  const auto text = feed.load();
  if (!text)
    return std::unexpected(text.error());
  return feed.newerItem(*text);
}

/// A feed in a folder of the test's own.
class UpdateFeedTest : public testing::Test {
 protected:
  [[nodiscard]] auto newerItem(std::string_view feedText) const {
    folder.write("appcast.xml", feedText);
    return loadNewerItem(UpdateFeed(settings, "6.1"));
  }

  [[nodiscard]] std::string verify(const AppcastItem& item) const {
    const auto verified = UpdateFeed(settings, "6.1").verify(item);
    return verified ? "verified" : verified.error();
  }

  /// An item that offers a file with these contents, at its URL.
  [[nodiscard]] AppcastItem offer(std::string_view contents, const std::optional<std::string>& signature) const {
    return itemWith(URL::fileURL(folder.write("update.tar", contents)).absoluteString(), signature);
  }

  TestSupport::TemporaryFolder folder;
  UpdateSettings settings = settingsFor(URL::fileURL(folder.path() / "appcast.xml"));
  SigningKey key;
};

TEST_F(UpdateFeedTest, FindsANewerVersion) {
  const auto item = newerItem(appcast("<item><sparkle:version>1.1</sparkle:version></item>"));
  ASSERT_TRUE(item && *item);
  EXPECT_EQ((*item)->version, "1.1");
}

TEST_F(UpdateFeedTest, FindsNothingInAFeedThatIsBehind) {
  for (const std::string version : {"1.0", "0.9", "1.0b1"}) {
    const auto item = newerItem(appcast("<item><sparkle:version>" + version + "</sparkle:version></item>"));
    EXPECT_TRUE(item && !*item) << version;
  }
}

TEST_F(UpdateFeedTest, SaysWhyAFeedCannotBeLoaded) {
  EXPECT_EQ(UpdateFeed(settings, "6.1").load().error(), "the feed cannot be loaded: No such file or directory");
  EXPECT_EQ(newerItem(std::string((1UL << 20) + 1, ' ')).error(),
            "the feed cannot be loaded: it has more than 1048576 bytes");
}

TEST_F(UpdateFeedTest, SaysWhyAFeedCannotBeRead) {
  EXPECT_EQ(newerItem("").error(), "the feed cannot be read: no element found in line 1");
  EXPECT_EQ(newerItem("<a/>").error(), "the feed cannot be read: it is not an appcast");
  EXPECT_EQ(newerItem("<!DOCTYPE rss [<!ENTITY a 'b'>]><rss/>").error(),
            "the feed cannot be read: it declares entities");
}

TEST_F(UpdateFeedTest, NeedsNoSignatureWithoutAKey) {
  EXPECT_EQ(verify(itemWith("https://127.0.0.1:1/", std::nullopt)), "verified");
  EXPECT_EQ(verify(AppcastItem()), "verified");
}

TEST_F(UpdateFeedTest, VerifiesWhatIsOffered) {
  settings.publicKey = key.publicKey();
  EXPECT_EQ(verify(offer("an archive", key.sign("an archive"))), "verified");
  EXPECT_EQ(verify(offer("", key.sign(""))), "verified");
  const std::string large(3'000'000, 'x');
  EXPECT_EQ(verify(offer(large, key.sign(large))), "verified");
}

TEST_F(UpdateFeedTest, RefusesAWrongSignature) {
  settings.publicKey = key.publicKey();
  EXPECT_EQ(verify(offer("another archive", key.sign("an archive"))),
            "the update cannot be verified: its signature does not match");
}

TEST_F(UpdateFeedTest, RefusesAMalformedSignature) {
  settings.publicKey = key.publicKey();
  EXPECT_EQ(verify(offer("an archive", "nonsense")),
            "the update cannot be verified: its signature is not one of 64 bytes in base64");
}

TEST_F(UpdateFeedTest, RefusesAMissingSignature) {
  settings.publicKey = key.publicKey();
  EXPECT_EQ(verify(offer("an archive", std::nullopt)), "the update cannot be verified: it has no signature");
  EXPECT_EQ(verify(AppcastItem()), "the update cannot be verified: it has no signature");
}

TEST_F(UpdateFeedTest, RefusesEverythingWithAMalformedKey) {
  for (const std::string text : {"", "nonsense"}) {
    settings.publicKey = text;
    EXPECT_EQ(verify(offer("an archive", key.sign("an archive"))),
              "the update cannot be verified: PublicKey is not a key of 32 bytes in base64");
  }
}

TEST_F(UpdateFeedTest, SaysWhyAnUpdateCannotBeLoaded) {
  settings.publicKey = key.publicKey();
  const std::string missing = URL::fileURL(folder.path() / "none").absoluteString();
  EXPECT_EQ(verify(itemWith(missing, key.sign(""))), "the update cannot be verified: No such file or directory");
}

TEST_F(UpdateFeedTest, LoadsUpdatesFromPermittedPlacesAlone) {
  settings.publicKey = key.publicKey();
  for (const std::string url : {"http://127.0.0.1:1/x", "no URL", "ftp://127.0.0.1:1/x"})
    EXPECT_EQ(verify(itemWith(url, key.sign(""))), "the update cannot be verified: it is not at an https: URL") << url;
  AppcastItem item = offer("an archive", key.sign("an archive"));
  settings.feed = *URL::parse("https://example.com/appcast.xml");
  EXPECT_EQ(verify(item), "the update cannot be verified: it is not at an https: URL");
}

TEST_F(UpdateFeedTest, OffersALinkThatItMayFollow) {
  AppcastItem item;
  const UpdateFeed onDisk(settings, "6.1");
  const UpdateFeed onTheWeb(settingsFor(*URL::parse("https://example.com/appcast.xml")), "6.1");
  EXPECT_FALSE(onDisk.link(item));
  item.link = "https://example.com/2.0";
  EXPECT_EQ(onDisk.link(item)->absoluteString(), "https://example.com/2.0");
  EXPECT_EQ(onTheWeb.link(item)->absoluteString(), "https://example.com/2.0");
  item.link = "file:///srv/2.0.html";
  EXPECT_TRUE(onDisk.link(item));
  EXPECT_FALSE(onTheWeb.link(item));
  for (const char* link : {"http://example.com/", "2.0.html", "https://example.com/a b", "deskloomplugin://x"}) {
    item.link = link;
    EXPECT_FALSE(onDisk.link(item)) << link;
  }
}

/// A feed on a web server of the test's own.
TEST(UpdateFeed, IsLoadedAndVerifiedFromTheWeb) {
  const HTTPSServer server;
  const TestSupport::EnvironmentVariable trust("SSL_CERT_FILE", server.certificate());
  const SigningKey key;
  server.serve("update.tar", "an archive");
  server.serve("appcast.xml",
               appcast("<item><enclosure sparkle:version='2.0' url='" + server.url("update.tar").absoluteString() +
                       "' sparkle:edSignature='" + key.sign("an archive") + "'/></item>"));
  UpdateSettings settings = settingsFor(server.url("appcast.xml"));
  settings.publicKey = key.publicKey();
  const UpdateFeed feed(settings, "6.1");
  const auto item = loadNewerItem(feed);
  ASSERT_TRUE(item && *item) << item.error();
  const auto verified = feed.verify(**item);
  EXPECT_TRUE(verified) << verified.error();
}

TEST(UpdateFeed, IsNotLoadedFromAServerThatNobodyVouchesFor) {
  const HTTPSServer server;
  server.serve("appcast.xml", appcast(""));
  const auto text = UpdateFeed(settingsFor(server.url("appcast.xml")), "6.1").load();
  ASSERT_FALSE(text);
  EXPECT_THAT(text.error(), StartsWith("the feed cannot be loaded: "));
  EXPECT_THAT(text.error(), HasSubstr("certificate"));
}

}  // namespace
