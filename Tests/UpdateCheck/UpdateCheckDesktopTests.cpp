#include <filesystem>
#include <map>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Tests/Support/FakeNotifications.h"
#include "Tests/UpdateCheck/HTTPSServer.h"
#include "Tests/UpdateCheck/SigningKey.h"
#include "Tests/UpdateCheck/UpdateCheckTest.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;
using TestSupport::ChildProcess;
using TestSupport::FakeNotifications;

TEST_F(UpdateCheckTest, TellsTheUserAboutEachVersionOnce) {
  const auto tell = [this] {
    FakeNotifications notifications;
    ChildProcess check = start();
    (void)notifications.await();
    notifications.close();
    return finish(std::move(check));
  };
  offer(itemOf("2.0"));
  EXPECT_EQ(tell(), "told the user about Plugin 2.0\n");
  {
    const FakeNotifications notifications;
    EXPECT_EQ(finish(start()), "");
    EXPECT_FALSE(notifications.wereAsked());
  }
  offer(itemOf("2.1"));
  EXPECT_EQ(tell(), "told the user about Plugin 2.1\n");
}

TEST_F(UpdateCheckTest, DoesNotAskTheFeedAgainWithinTheInterval) {
  configure("FeedURL=" + feedURL() + "\n");
  EXPECT_THAT(finish(start()), HasSubstr("the feed cannot be loaded"));
  EXPECT_EQ(finish(start()), "");
}

TEST_F(UpdateCheckTest, TellsTheUserLaterIfThereWasNoNotificationService) {
  offer(itemOf("2.0"));
  EXPECT_THAT(finish(start()), StartsWith("could not check for an update of Plugin: the user cannot be told: "));
  FakeNotifications notifications;
  ChildProcess check = start();
  (void)notifications.await();
  notifications.close();
  EXPECT_EQ(finish(std::move(check)), "told the user about Plugin 2.0\n");
}

TEST_F(UpdateCheckTest, DoesNothingWhileAnotherCheckIsUnderWay) {
  FakeNotifications notifications;
  offer(itemOf("2.0"));
  ChildProcess check = start();
  (void)notifications.await();
  EXPECT_EQ(finish(start()), "");
  notifications.close();
  EXPECT_EQ(finish(std::move(check)), "told the user about Plugin 2.0\n");
}

TEST_F(UpdateCheckTest, AnnouncesOnlyWhatIsInAFeedWithAValidSignature) {
  const SigningKey key;
  offer(itemOf("2.0"));
  configure("FeedURL=" + feedURL() + "\nInterval=0\nPublicKey=" + key.publicKey() + "\n");
  FakeNotifications notifications;
  folder.write("appcast.xml.sig", key.sign(appcast(itemOf("2.1"))));
  EXPECT_EQ(finish(start()),
            "could not check for an update of Plugin: the feed cannot be verified: its signature does not match\n");
  EXPECT_FALSE(notifications.wereAsked());
  folder.write("appcast.xml.sig", key.sign(appcast(itemOf("2.0"))));
  ChildProcess check = start();
  (void)notifications.await();
  notifications.close();
  EXPECT_EQ(finish(std::move(check)), "told the user about Plugin 2.0\n");
}

TEST_F(UpdateCheckTest, AsksAServerForTheFeedAndNothingElse) {
  HTTPSServer server(HTTPSServer::Answers::byHand);
  FakeNotifications notifications;
  configure("FeedURL=" + server.url("appcast.xml").absoluteString() + "\n");
  ChildProcess check = start({{"SSL_CERT_FILE", server.certificate()}});
  EXPECT_EQ(server.awaitRequest().at(0), "GET /appcast.xml HTTP/1.1");
  const std::string feed = appcast(
      itemOf("2.0", "<enclosure url='" + server.url("plugin.tar").absoluteString() + "' sparkle:edSignature='c2ln'/>"));
  server.say("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(feed.size()) + "\r\n\r\n" + feed + "\n");
  // A second request would find no answer, and the announcement would not come.
  (void)notifications.await();
  notifications.close();
  EXPECT_EQ(finish(std::move(check)), "told the user about Plugin 2.0\n");
}

TEST_F(UpdateCheckTest, LoadsTheFeedFromTheWeb) {
  const HTTPSServer server;
  FakeNotifications notifications;
  server.serve("appcast.xml", appcast(itemOf("2.0")));
  configure("FeedURL=" + server.url("appcast.xml").absoluteString() + "\n");
  ChildProcess check = start({{"SSL_CERT_FILE", server.certificate()}});
  (void)notifications.await();
  notifications.close();
  EXPECT_EQ(finish(std::move(check)), "told the user about Plugin 2.0\n");
}

TEST_F(UpdateCheckTest, SaysWhatIsWrongWithAFeedInOneLine) {
  const std::map<std::string, std::string> feeds = {
      {"", "the feed cannot be read: no element found in line 1"},
      {"not a feed", "the feed cannot be read: syntax error in line 1"},
      {"<rss><channel>", "the feed cannot be read: no element found in line 1"},
      {"<html/>", "the feed cannot be read: it is not an appcast"},
      {"<!DOCTYPE rss [<!ENTITY e 'e'>]><rss/>", "the feed cannot be read: it declares entities"},
      {std::string(2UL << 20, '<'), "the feed cannot be loaded: it has more than 1048576 bytes"}};
  const FakeNotifications notifications;
  for (const auto& [feed, problem] : feeds) {
    folder.write("appcast.xml", feed);
    EXPECT_EQ(finish(start()), "could not check for an update of Plugin: " + problem + '\n') << feed.substr(0, 80);
  }
  EXPECT_FALSE(notifications.wereAsked());
}

TEST_F(UpdateCheckTest, DoesNotWaitForAFeedThatNeverComes) {
  mkfifo((folder.path() / "appcast.xml").c_str(), 0600);
  EXPECT_EQ(finish(start()),
            "could not check for an update of Plugin: the feed cannot be loaded: it is not a regular file\n");
}

TEST_F(UpdateCheckTest, TellsOnlyTheLogIfThereIsNothingNew) {
  const FakeNotifications notifications;
  offer(itemOf("1.0") + itemOf("0.9") + itemOf("1.0b1"));
  EXPECT_EQ(finish(start()), "there is no update of Plugin 1.0\n");
  offer("");
  EXPECT_EQ(finish(start()), "there is no update of Plugin 1.0\n");
  EXPECT_FALSE(notifications.wereAsked());
}

TEST_F(UpdateCheckTest, DoesNothingWithoutAFeed) {
  offer(itemOf("2.0"));
  configure("");
  EXPECT_EQ(finish(start()), "");
  std::filesystem::remove(bundle() / "Info.ini");
  EXPECT_EQ(finish(start()), "");
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "state"));
}

TEST_F(UpdateCheckTest, SaysWhatIsWrongWithTheBundleInOneLine) {
  configure("FeedURL=http://example.com/appcast.xml\n");
  EXPECT_EQ(finish(start()), "could not check for an update: FeedURL is neither an https: nor a file: URL\n");
}

TEST_F(UpdateCheckTest, IgnoresADamagedState) {
  configure("FeedURL=" + feedURL() + "\n");
  folder.write("state/deskloom/com.example.Plugin.updates", "\xff\xfe[[[");
  EXPECT_THAT(finish(start()), HasSubstr("the feed cannot be loaded"));
  EXPECT_EQ(finish(start()), "");
}

TEST(UpdateCheckProgram, ExplainsItself) {
  ChildProcess help({UPDATE_CHECK_PROGRAM, "--help"});
  EXPECT_THAT(help.readAll(), StartsWith("Usage: update-check\n"));
  EXPECT_EQ(help.wait(), 0);
  ChildProcess version({UPDATE_CHECK_PROGRAM, "--version"});
  EXPECT_THAT(version.readAll(), testing::MatchesRegex("update-check [0-9.]+\n"));
  EXPECT_EQ(version.wait(), 0);
}

TEST(UpdateCheckProgram, RefusesOtherArguments) {
  for (const char* argument : {"--now", "x", "", "-h"}) {
    ChildProcess check({UPDATE_CHECK_PROGRAM, argument}, {.captureErrors = true});
    EXPECT_EQ(check.readAll(), "update-check: unexpected arguments (see --help)\n");
    EXPECT_EQ(check.wait(), 2);
  }
  EXPECT_EQ(TestSupport::run({UPDATE_CHECK_PROGRAM, "--help", "--version"}, {.captureErrors = true}), 2);
}

}  // namespace
