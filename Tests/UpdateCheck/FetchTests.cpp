#include <chrono>
#include <filesystem>
#include <future>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/SilentServer.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/UpdateCheck/HTTPSServer.h"
#include "UpdateCheck/Fetch.h"

namespace {

using Platform::URL;
using testing::HasSubstr;
using TestSupport::EnvironmentVariable;
using UpdateCheck::FetchLimits;

constexpr FetchLimits limits = {.bytes = 1UL << 20, .total = std::chrono::seconds(30)};

auto fetch(const std::string& url, const FetchLimits& within = limits) {
  return UpdateCheck::fetch(*URL::parse(url), within, "Test/1");
}

auto fetch(const URL& url, const FetchLimits& within = limits) {
  return UpdateCheck::fetch(url, within, "Test/1");
}

class FileFetchTest : public testing::Test {
 protected:
  [[nodiscard]] std::string urlOf(const std::filesystem::path& path) const {
    return URL::fileURL(path).absoluteString();
  }

  TestSupport::TemporaryFolder folder;
};

TEST_F(FileFetchTest, ReadsAFile) {
  const std::string contents("<a>\0\xff</a>", 9);
  EXPECT_EQ(fetch(urlOf(folder.write("feed.xml", contents))), contents);
  EXPECT_EQ(fetch(urlOf(folder.write("an odd näme %", contents))), contents);
  EXPECT_EQ(fetch(urlOf(folder.write("empty", ""))), "");
}

TEST_F(FileFetchTest, ReadsALongFile) {
  const std::string contents(300'000, 'x');
  EXPECT_EQ(fetch(urlOf(folder.write("feed.xml", contents))), contents);
}

TEST_F(FileFetchTest, ReadsNoMoreThanItMay) {
  const auto url = urlOf(folder.write("feed.xml", "0123456789"));
  EXPECT_EQ(fetch(url, {.bytes = 10, .total = {}}), "0123456789");
  EXPECT_EQ(fetch(url, {.bytes = 9, .total = {}}).error(), "it has more than 9 bytes");
  EXPECT_EQ(fetch("file:///proc/kallsyms", {.bytes = 4, .total = {}}).error(), "it has more than 4 bytes");
}

TEST_F(FileFetchTest, SaysThatAFileIsMissing) {
  EXPECT_EQ(fetch(urlOf(folder.path() / "none")).error(), "No such file or directory");
}

TEST_F(FileFetchTest, RefusesWhatIsNotARegularFile) {
  mkfifo((folder.path() / "pipe").c_str(), 0600);
  for (const auto& path : {folder.path() / "pipe", folder.path(), std::filesystem::path("/dev/zero")})
    EXPECT_EQ(fetch(urlOf(path)).error(), "it is not a regular file") << path;
}

TEST_F(FileFetchTest, ReadsOnlyFilesOnThisMachine) {
  const auto file = folder.write("feed.xml", "text");
  EXPECT_EQ(fetch("file://localhost" + file.string()), "text");
  EXPECT_EQ(fetch("FILE://" + file.string()), "text");
  EXPECT_EQ(fetch("file://server.example" + file.string()).error(), "it is not a file on this machine");
  EXPECT_EQ(fetch("file:///a%2Fb").error(), "it is not a file on this machine");
}

TEST(Fetch, RefusesOtherSchemes) {
  for (const char* url : {"http://127.0.0.1/", "ftp://127.0.0.1/", "gopher://127.0.0.1/", "scp://127.0.0.1/x",
                          "data:text/plain,x", "feed.xml", "//127.0.0.1/feed.xml"})
    EXPECT_EQ(fetch(url).error(), "it is neither an https: nor a file: URL") << url;
}

class WebFetchTest : public testing::Test {
 protected:
  void expectRedirectRefused(const std::string& target, const std::string& reason) const {
    server.serve("redirect", "302 Found", {"Location: " + target}, "moved");
    const auto fetched = fetch(server.url("redirect"));
    ASSERT_FALSE(fetched);
    EXPECT_THAT(fetched.error(), HasSubstr(reason));
  }

  HTTPSServer server;
  EnvironmentVariable trust{"SSL_CERT_FILE", server.certificate()};
};

TEST_F(WebFetchTest, LoadsAFile) {
  server.serve("feed", "<rss/>");
  EXPECT_EQ(fetch(server.url("feed")), "<rss/>");
}

TEST_F(WebFetchTest, LoadsALongFile) {
  const std::string body(300'000, 'x');
  server.serve("feed", body);
  EXPECT_EQ(fetch(server.url("feed")), body);
}

TEST_F(WebFetchTest, FollowsRedirectsToHTTPS) {
  server.serve("feed", "<rss/>");
  server.serve("first", "301 Moved Permanently", {"Location: /second"}, "moved");
  server.serve("second", "302 Found", {"Location: " + server.url("feed").absoluteString()}, "moved");
  EXPECT_EQ(fetch(server.url("first")), "<rss/>");
}

TEST_F(WebFetchTest, FollowsAtMostFiveRedirects) {
  server.serve("0", "<rss/>");
  for (int step = 1; step <= 6; ++step)
    server.serve(std::to_string(step), "302 Found", {"Location: /" + std::to_string(step - 1)});
  EXPECT_EQ(fetch(server.url("5")), "<rss/>");
  EXPECT_EQ(fetch(server.url("6")).error(), "Maximum (5) redirects followed");
}

TEST_F(WebFetchTest, FollowsNoRedirectToHTTP) {
  const TestSupport::SilentServer plain;
  expectRedirectRefused("http://" + plain.address() + "/feed", "Protocol \"http\" not supported");
  EXPECT_FALSE(plain.takeConnection());
}

TEST_F(WebFetchTest, FollowsNoRedirectToAnFTPServer) {
  const TestSupport::SilentServer ftp;
  expectRedirectRefused("ftp://" + ftp.address() + "/feed", "Protocol \"ftp\" not supported");
  EXPECT_FALSE(ftp.takeConnection());
}

TEST_F(WebFetchTest, FollowsNoRedirectToAFile) {
  expectRedirectRefused("file://" + server.certificate().string(), "Protocol \"file\" not supported");
}

TEST_F(WebFetchTest, ConnectsToNoHTTPServer) {
  const TestSupport::SilentServer plain;
  EXPECT_EQ(fetch("http://" + plain.address() + "/feed").error(), "it is neither an https: nor a file: URL");
  EXPECT_FALSE(plain.takeConnection());
}

TEST_F(WebFetchTest, RefusesACertificateThatNoAuthoritySigned) {
  const EnvironmentVariable usualTrust("SSL_CERT_FILE", std::nullopt);
  server.serve("feed", "<rss/>");
  const auto fetched = fetch(server.url("feed"));
  ASSERT_FALSE(fetched);
  EXPECT_THAT(fetched.error(), HasSubstr("SSL certificate problem"));
}

TEST_F(WebFetchTest, RefusesACertificateForAnotherHost) {
  server.serve("feed", "<rss/>");
  const auto fetched = fetch("https://localhost:" + server.port() + "/feed");
  ASSERT_FALSE(fetched);
  EXPECT_THAT(fetched.error(), HasSubstr("matches target host name 'localhost'"));
}

TEST_F(WebFetchTest, RefusesAnAnswerThatIsNotASuccess) {
  server.serve("none", "404 Not Found", {}, "<rss/>");
  EXPECT_EQ(fetch(server.url("none")).error(), "The requested URL returned error: 404");
}

TEST_F(WebFetchTest, LimitsALengthThatIsAnnounced) {
  server.serve("feed", "0123456789");
  EXPECT_EQ(fetch(server.url("feed"), {.bytes = 10, .total = limits.total}), "0123456789");
  EXPECT_EQ(fetch(server.url("feed"), {.bytes = 9, .total = limits.total}).error(), "it has more than 9 bytes");
}

TEST_F(WebFetchTest, LimitsALengthThatIsNotAnnounced) {
  server.serve("feed", "200 OK", {}, "0123456789");
  EXPECT_EQ(fetch(server.url("feed"), {.bytes = 10, .total = limits.total}), "0123456789");
  EXPECT_EQ(fetch(server.url("feed"), {.bytes = 9, .total = limits.total}).error(), "it has more than 9 bytes");
}

TEST_F(WebFetchTest, NoticesAnAnswerThatBreaksOff) {
  server.serve("feed", "200 OK", {"Content-Length: 100"}, "0123456789");
  EXPECT_FALSE(fetch(server.url("feed")));
}

TEST(WebFetch, TellsTheServerOnlyTheUserAgent) {
  HTTPSServer server(HTTPSServer::Answers::byHand);
  const EnvironmentVariable trust("SSL_CERT_FILE", server.certificate());
  auto fetched = std::async(std::launch::async, [url = server.url("feed")] { return fetch(url); });
  EXPECT_THAT(server.awaitRequest(), testing::ElementsAre("GET /feed HTTP/1.1", "Host: 127.0.0.1:" + server.port(),
                                                          "User-Agent: Test/1", "Accept: */*"));
  server.say("HTTP/1.1 200 OK\r\nContent-Length: 6\r\n\r\n<rss/>\n");
  EXPECT_EQ(fetched.get(), "<rss/>");
}

TEST(WebFetch, StopsWaitingForASilentServerAfterTheTimeout) {
  const EnvironmentVariable noProxy("no_proxy", "*");
  const TestSupport::SilentServer server;
  const auto fetched = fetch("https://" + server.address() + "/feed", {.bytes = 10, .total = std::chrono::seconds(2)});
  EXPECT_TRUE(server.takeConnection());
  ASSERT_FALSE(fetched);
  EXPECT_THAT(fetched.error(), HasSubstr("timed out"));
}

}  // namespace
