#include <chrono>
#include <filesystem>
#include <string>
#include <thread>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "BrowserSessions/Chromium/ChromiumProfile.h"
#include "Tests/BrowserSessions/SessionLogWriter.h"
#include "Tests/Support/TemporaryFolder.h"

namespace BrowserSessions {
namespace {

using std::filesystem::path;

SessionLogWriter tabAt(const std::string& url) {
  return SessionLogWriter().window(1).tab(1, 11, 0, url);
}

std::string completeLog(const std::string& url) {
  return tabAt(url).marker().bytes();
}

class ChromiumProfile : public testing::Test {
 protected:
  // The address of the only tab, or the error.
  [[nodiscard]] std::string openAddress() const {
    const auto session = chromiumProfileSession(folder_.path());
    if (!session)
      return session.error();
    const auto& windows = session->windows;
    return windows.size() == 1 ? windows.front().contents.tabs.front().url
                               : std::to_string(windows.size()) + " windows";
  }

  [[nodiscard]] std::string sentence(const std::string& file, const std::string& end) const {
    return (folder_.path() / file).string() + end;
  }

  TestSupport::TemporaryFolder folder_;
};

TEST_F(ChromiumProfile, IsNotKnownWithoutALog) {
  const std::string complaint = "The session of the profile " + folder_.path().string() +
                                " is unknown: the browser has not written a session log since it was started.";
  EXPECT_EQ(openAddress(), complaint);
  folder_.write("Sessions/Tabs_1", completeLog("closed"));
  folder_.write("Sessions/Apps_1", completeLog("application"));
  EXPECT_EQ(openAddress(), complaint);
}

TEST_F(ChromiumProfile, HasOpenWhatTheNewestLogTells) {
  folder_.write("Sessions/Session_10", completeLog("newest"));
  std::filesystem::last_write_time(folder_.path() / "Sessions/Session_10", std::filesystem::file_time_type());
  folder_.write("Sessions/Session_9", completeLog("older"));
  EXPECT_EQ(openAddress(), "newest");
}

TEST_F(ChromiumProfile, HasOpenWhatTheLogBeforeTellsWhileTheNewestIsBegun) {
  folder_.write("Sessions/Session_1", completeLog("before"));
  const std::string begun = tabAt("newest").bytes();
  for (std::size_t size = 0; size <= begun.size(); ++size) {
    folder_.write("Sessions/Session_2", begun.substr(0, size));
    EXPECT_EQ(openAddress(), "before") << size;
  }
  folder_.write("Sessions/Session_2", completeLog("newest"));
  EXPECT_EQ(openAddress(), "newest");
}

TEST_F(ChromiumProfile, CannotBeReadWhereNoLogIsComplete) {
  folder_.write("Sessions/Session_1", tabAt("a").bytes());
  folder_.write("Sessions/Session_2", "");
  EXPECT_EQ(openAddress(), sentence("Sessions/Session_2", " is not complete, and neither is an older session log."));
}

TEST_F(ChromiumProfile, CannotBeReadWhereTheNewestLogIsSomethingElse) {
  folder_.write("Sessions/Session_1", completeLog("before"));
  folder_.write("Sessions/Session_2", "<html>");
  EXPECT_EQ(openAddress(), sentence("Sessions/Session_2", ": The file is not a session log."));
}

TEST_F(ChromiumProfile, CannotBeReadWhereTheNewestLogIsOfAnUnknownVersion) {
  folder_.write("Sessions/Session_1", completeLog("before"));
  folder_.write("Sessions/Session_2", SessionLogWriter(9).marker().bytes());
  EXPECT_EQ(openAddress(), sentence("Sessions/Session_2", ": The session log has the unknown version 9."));
}

TEST_F(ChromiumProfile, CannotBeReadWhereTheNewestLogCannot) {
  folder_.write("Sessions/Session_1", completeLog("before"));
  const path newest = folder_.path() / "Sessions/Session_2";
  const std::string complaint = sentence("Sessions/Session_2", " cannot be read, or is too large.");

  std::filesystem::create_symlink("nowhere", newest);
  EXPECT_EQ(openAddress(), complaint) << "a link to nothing";
  std::filesystem::remove(newest);

  std::filesystem::create_directory(newest);
  EXPECT_EQ(openAddress(), complaint) << "a folder";
  std::filesystem::remove(newest);

  ASSERT_EQ(mkfifo(newest.c_str(), 0600), 0);
  EXPECT_EQ(openAddress(), complaint) << "a pipe";
}

TEST_F(ChromiumProfile, CannotBeReadWhereTheNewestLogIsHuge) {
  const path newest = folder_.write("Sessions/Session_2", completeLog("newest"));
  std::filesystem::resize_file(newest, std::uintmax_t{1} << 40);
  EXPECT_EQ(openAddress(), sentence("Sessions/Session_2", " cannot be read, or is too large."));
}

TEST_F(ChromiumProfile, IsReadBesideItsEncryptedTwin) {
  folder_.write("Sessions/Session_1", completeLog("clear"));
  folder_.write("Sessions_Encrypted/Session_1", SessionLogWriter(5).bytes() + "secret");
  EXPECT_EQ(openAddress(), "clear");
}

TEST_F(ChromiumProfile, SaysThatItsSessionIsEncryptedNow) {
  const std::string complaint = "The browser keeps the session in " + folder_.path().string() + " encrypted.";
  folder_.write("Sessions_Encrypted/Session_13400000600000000", SessionLogWriter(5).bytes() + "secret");
  EXPECT_EQ(openAddress(), complaint) << "and nowhere else";

  const path clear = folder_.write("Sessions/Session_13400000000000000", completeLog("stale"));
  EXPECT_EQ(openAddress(), "stale") << "as the readable log was written just now";
  std::filesystem::last_write_time(clear, std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
  EXPECT_EQ(openAddress(), complaint);
}

TEST_F(ChromiumProfile, SaysThatItsSessionIsEncryptedInPlace) {
  folder_.write("Sessions/Session_1", completeLog("stale"));
  folder_.write("Sessions/Session_2", SessionLogWriter(5).bytes());
  EXPECT_EQ(openAddress(), sentence("Sessions/Session_2", ": The session log is encrypted."));
}

TEST_F(ChromiumProfile, IsReadWhileTheBrowserGoesFromLogToLog) {
  folder_.write("Sessions/Session_100", completeLog("https://example.com/"));
  std::jthread browser([this](const std::stop_token& stopped) {
    for (int number = 101; !stopped.stop_requested(); ++number) {
      folder_.write("Sessions/Session_" + std::to_string(number), completeLog("https://example.com/"));
      std::filesystem::remove(folder_.path() / ("Sessions/Session_" + std::to_string(number - 2)));
    }
  });
  int found = 0;
  for (int round = 0; round < 300; ++round) {
    const std::string address = openAddress();
    found += address == "https://example.com/" ? 1 : 0;
    EXPECT_TRUE(address == "https://example.com/" || address.ends_with(" cannot be read, or is too large.")) << address;
  }
  EXPECT_GT(found, 0);
}

}  // namespace
}  // namespace BrowserSessions
