#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Tests/Support/TemporaryFolder.h"
#include "UpdateCheck/Fetcher.h"

namespace {

using Platform::URL;
using UpdateCheck::Fetcher;
using UpdateCheck::FetchLimits;

constexpr FetchLimits limits = {.bytes = 1UL << 20, .total = std::chrono::seconds(30)};

auto fetch(const std::string& url, const FetchLimits& within = limits) {
  return Fetcher("Test/1").fetch(*URL::parse(url), within);
}

class FetcherFileTest : public testing::Test {
 protected:
  [[nodiscard]] std::string urlOf(const std::filesystem::path& path) const {
    return URL::fileURL(path).absoluteString();
  }

  TestSupport::TemporaryFolder folder;
};

TEST_F(FetcherFileTest, ReadsAFile) {
  const std::string contents("<a>\0\xff</a>", 9);
  EXPECT_EQ(fetch(urlOf(folder.write("feed.xml", contents))), contents);
  EXPECT_EQ(fetch(urlOf(folder.write("an odd näme %", contents))), contents);
  EXPECT_EQ(fetch(urlOf(folder.write("empty", ""))), "");
}

TEST_F(FetcherFileTest, ReadsLargeFilesPieceByPiece) {
  const auto file = folder.write("feed.xml", std::string(300'000, 'x'));
  std::size_t pieces = 0;
  std::size_t bytes = 0;
  EXPECT_TRUE(Fetcher("Test/1").fetch(*URL::parse(urlOf(file)), limits, [&](std::string_view piece) {
    ++pieces;
    bytes += piece.size();
    return true;
  }));
  EXPECT_GT(pieces, 1U);
  EXPECT_EQ(bytes, 300'000U);
}

TEST_F(FetcherFileTest, ReadsNoMoreThanItMay) {
  const auto url = urlOf(folder.write("feed.xml", "0123456789"));
  EXPECT_EQ(fetch(url, {.bytes = 10, .total = {}}), "0123456789");
  EXPECT_EQ(fetch(url, {.bytes = 9, .total = {}}).error(), "it has more than 9 bytes");
  EXPECT_EQ(fetch("file:///proc/kallsyms", {.bytes = 4, .total = {}}).error(), "it has more than 4 bytes");
}

TEST_F(FetcherFileTest, EndsWhereThePiecesCannotBeKept) {
  const auto url = *URL::parse(urlOf(folder.write("feed.xml", "text")));
  const auto fetched = Fetcher("Test/1").fetch(url, limits, [](std::string_view) { return false; });
  EXPECT_EQ(fetched.error(), "its contents cannot be kept");
}

TEST_F(FetcherFileTest, SaysWhichFileIsMissing) {
  EXPECT_EQ(fetch(urlOf(folder.path() / "none")).error(), "No such file or directory");
}

TEST_F(FetcherFileTest, ReadsNothingThatIsNoRegularFile) {
  mkfifo((folder.path() / "pipe").c_str(), 0600);
  for (const auto& path : {folder.path() / "pipe", folder.path(), std::filesystem::path("/dev/zero")})
    EXPECT_EQ(fetch(urlOf(path)).error(), "it is not a regular file") << path;
}

TEST_F(FetcherFileTest, ReadsFilesOfThisMachineAlone) {
  const auto file = folder.write("feed.xml", "text");
  EXPECT_EQ(fetch("file://localhost" + file.string()), "text");
  EXPECT_EQ(fetch("FILE://" + file.string()), "text");
  EXPECT_EQ(fetch("file://server.example" + file.string()).error(), "it is not a file of this machine");
  EXPECT_EQ(fetch("file:///a%2Fb").error(), "it is not a file of this machine");
}

TEST(Fetcher, KnowsNoOtherScheme) {
  for (const char* url : {"http://127.0.0.1/", "ftp://127.0.0.1/", "gopher://127.0.0.1/", "scp://127.0.0.1/x",
                          "data:text/plain,x", "feed.xml", "//127.0.0.1/feed.xml"})
    EXPECT_EQ(fetch(url).error(), "it is neither an https: nor a file: URL") << url;
}

}  // namespace
