#include <chrono>
#include <future>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/SilentServer.h"
#include "Tests/UpdateCheck/HTTPSServer.h"
#include "UpdateCheck/Fetcher.h"
#include "UpdateCheck/WebTransfer.h"

namespace {

using Platform::URL;
using testing::HasSubstr;
using TestSupport::EnvironmentVariable;
using UpdateCheck::FetchLimits;

constexpr FetchLimits limits = {.bytes = 1UL << 20, .total = std::chrono::seconds(30)};

/// What came of a transfer: the bytes, or why there are none.
struct Outcome {
  std::string bytes;
  std::string failure;
};

Outcome transfer(const URL& url, const FetchLimits& within = limits) {
  Outcome outcome;
  const UpdateCheck::ByteSink sink = [&](std::string_view piece) {
    outcome.bytes += piece;
    return true;
  };
  const std::string userAgent = "Test/1";
  if (const auto done = UpdateCheck::WebTransfer(userAgent, within, sink).run(url); !done)
    outcome.failure = done.error();
  return outcome;
}

class WebTransferTest : public testing::Test {
 protected:
  void expectRedirectRefused(const std::string& target, const std::string& reason) const {
    server.serve("redirect", "302 Found", {"Location: " + target}, "moved");
    const Outcome outcome = transfer(server.url("redirect"));
    EXPECT_EQ(outcome.bytes, "");
    EXPECT_THAT(outcome.failure, HasSubstr(reason));
  }

  HTTPSServer server;
  EnvironmentVariable trust{"SSL_CERT_FILE", server.certificate()};
};

TEST_F(WebTransferTest, LoadsAFile) {
  server.serve("feed", "<rss/>");
  const Outcome outcome = transfer(server.url("feed"));
  EXPECT_EQ(outcome.failure, "");
  EXPECT_EQ(outcome.bytes, "<rss/>");
}

TEST_F(WebTransferTest, LoadsALongFile) {
  const std::string body(300'000, 'x');
  server.serve("feed", body);
  EXPECT_EQ(transfer(server.url("feed")).bytes, body);
}

TEST_F(WebTransferTest, FollowsRedirectsOnTheSecureWeb) {
  server.serve("feed", "<rss/>");
  server.serve("first", "301 Moved Permanently", {"Location: /second"}, "moved");
  server.serve("second", "302 Found", {"Location: " + server.url("feed").absoluteString()}, "moved");
  EXPECT_EQ(transfer(server.url("first")).bytes, "<rss/>");
}

TEST_F(WebTransferTest, FollowsFiveRedirectsAtMost) {
  server.serve("0", "<rss/>");
  for (int step = 1; step <= 6; ++step)
    server.serve(std::to_string(step), "302 Found", {"Location: /" + std::to_string(step - 1)});
  EXPECT_EQ(transfer(server.url("5")).bytes, "<rss/>");
  EXPECT_EQ(transfer(server.url("6")).bytes, "");
  EXPECT_EQ(transfer(server.url("6")).failure, "Maximum (5) redirects followed");
}

TEST_F(WebTransferTest, FollowsNoRedirectToThePlainWeb) {
  const TestSupport::SilentServer plain;
  expectRedirectRefused("http://" + plain.address() + "/feed", "Protocol \"http\" not supported");
  EXPECT_FALSE(plain.takeConnection());
}

TEST_F(WebTransferTest, FollowsNoRedirectToAnFTPServer) {
  const TestSupport::SilentServer ftp;
  expectRedirectRefused("ftp://" + ftp.address() + "/feed", "Protocol \"ftp\" not supported");
  EXPECT_FALSE(ftp.takeConnection());
}

TEST_F(WebTransferTest, FollowsNoRedirectToAFile) {
  expectRedirectRefused("file://" + server.certificate().string(), "Protocol \"file\" not supported");
}

TEST_F(WebTransferTest, BeginsNowhereButOnTheSecureWeb) {
  const TestSupport::SilentServer plain;
  const Outcome outcome = transfer(*URL::parse("http://" + plain.address() + "/feed"));
  EXPECT_THAT(outcome.failure, HasSubstr("Protocol \"http\" not supported"));
  EXPECT_FALSE(plain.takeConnection());
}

TEST_F(WebTransferTest, RefusesACertificateThatNobodyVouchesFor) {
  const EnvironmentVariable usualTrust("SSL_CERT_FILE", std::nullopt);
  server.serve("feed", "<rss/>");
  const Outcome outcome = transfer(server.url("feed"));
  EXPECT_EQ(outcome.bytes, "");
  EXPECT_THAT(outcome.failure, HasSubstr("SSL certificate problem"));
}

TEST_F(WebTransferTest, RefusesACertificateForAnotherHost) {
  server.serve("feed", "<rss/>");
  const Outcome outcome = transfer(*URL::parse("https://localhost:" + server.port() + "/feed"));
  EXPECT_EQ(outcome.bytes, "");
  EXPECT_THAT(outcome.failure, HasSubstr("matches target host name 'localhost'"));
}

TEST_F(WebTransferTest, RefusesAnAnswerThatIsNoSuccess) {
  server.serve("none", "404 Not Found", {}, "<rss/>");
  const Outcome outcome = transfer(server.url("none"));
  EXPECT_EQ(outcome.bytes, "");
  EXPECT_EQ(outcome.failure, "The requested URL returned error: 404");
}

TEST_F(WebTransferTest, BoundsALengthThatIsAnnounced) {
  server.serve("feed", "0123456789");
  EXPECT_EQ(transfer(server.url("feed"), {.bytes = 10, .total = limits.total}).bytes, "0123456789");
  const Outcome outcome = transfer(server.url("feed"), {.bytes = 9, .total = limits.total});
  EXPECT_EQ(outcome.bytes, "");
  EXPECT_EQ(outcome.failure, "Maximum file size exceeded");
}

TEST_F(WebTransferTest, BoundsALengthThatIsNotAnnounced) {
  server.serve("feed", "200 OK", {}, "0123456789");
  const UpdateCheck::Fetcher fetcher("Test/1");
  EXPECT_EQ(fetcher.fetch(server.url("feed"), {.bytes = 10, .total = limits.total}), "0123456789");
  EXPECT_EQ(fetcher.fetch(server.url("feed"), {.bytes = 9, .total = limits.total}).error(), "it has more than 9 bytes");
}

TEST_F(WebTransferTest, NoticesAFileThatBreaksOff) {
  server.serve("feed", "200 OK", {"Content-Length: 100"}, "0123456789");
  EXPECT_NE(transfer(server.url("feed")).failure, "");
}

TEST(WebTransfer, SaysWhoAsksAndNothingElse) {
  HTTPSServer server(HTTPSServer::Answers::byHand);
  const EnvironmentVariable trust("SSL_CERT_FILE", server.certificate());
  auto outcome = std::async(std::launch::async, [url = server.url("feed")] { return transfer(url); });
  EXPECT_THAT(server.awaitRequest(), testing::ElementsAre("GET /feed HTTP/1.1", "Host: 127.0.0.1:" + server.port(),
                                                          "User-Agent: Test/1", "Accept: */*"));
  server.say("HTTP/1.1 200 OK\r\nContent-Length: 6\r\n\r\n<rss/>\n");
  EXPECT_EQ(outcome.get().bytes, "<rss/>");
}

TEST(WebTransfer, WaitsForASilentServerNoLongerThanItMay) {
  const EnvironmentVariable noProxy("no_proxy", "*");
  const TestSupport::SilentServer server;
  const Outcome outcome =
      transfer(*URL::parse("https://" + server.address() + "/feed"), {.bytes = 10, .total = std::chrono::seconds(2)});
  EXPECT_TRUE(server.takeConnection());
  EXPECT_THAT(outcome.failure, HasSubstr("timed out"));
}

}  // namespace
