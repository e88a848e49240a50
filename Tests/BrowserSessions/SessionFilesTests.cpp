#include <chrono>
#include <string>

#include <gtest/gtest.h>

#include "BrowserSessions/Chromium/SessionFiles.h"
#include "Tests/Support/TemporaryFolder.h"

namespace BrowserSessions {
namespace {

using std::chrono::minutes;

constexpr std::int64_t minute = 60'000'000;

class SessionFilesOfAProfile : public testing::Test {
 protected:
  // Makes a log that was begun and last written these numbers of minutes after a fixed time.
  void make(const std::string& folder, int begun, int written) const {
    const auto file = folder_.write(folder + "/Session_" + std::to_string(start + begun * minute), "");
    std::filesystem::last_write_time(file, std::filesystem::file_time_type() + minutes(written));
  }

  [[nodiscard]] bool areThoseStale() const {
    return areStale(sessionFiles(folder_.path() / "clear"), sessionFiles(folder_.path() / "encrypted"));
  }

  static constexpr std::int64_t start = 13'400'000'000'000'000;
  TestSupport::TemporaryFolder folder_;
};

TEST_F(SessionFilesOfAProfile, ComeNewestFirst) {
  for (const char* name : {"Session_9", "Session_100", "Session_13404000000000001", "Session_13404000000000000"})
    folder_.write(name, "");
  const std::vector<SessionFile> expected = {{folder_.path() / "Session_13404000000000001", 13404000000000001},
                                             {folder_.path() / "Session_13404000000000000", 13404000000000000},
                                             {folder_.path() / "Session_100", 100},
                                             {folder_.path() / "Session_9", 9}};
  EXPECT_EQ(sessionFiles(folder_.path()), expected);
}

TEST_F(SessionFilesOfAProfile, AreThoseWithATimeInTheirNameOnly) {
  for (const char* name : {"Tabs_1", "Apps_2", "Session", "Session_", "Session_x", "Session_1x", "Session_1_2",
                           "Session_-1", "Session_ 1", "Session_0x1", "session_1", "Session_99999999999999999999"})
    folder_.write(name, "");
  EXPECT_TRUE(sessionFiles(folder_.path()).empty());
}

TEST_F(SessionFilesOfAProfile, AreNoneWithoutAFolder) {
  EXPECT_TRUE(sessionFiles(folder_.path() / "missing").empty());
  EXPECT_TRUE(sessionFiles(folder_.write("file", "")).empty());
}

TEST_F(SessionFilesOfAProfile, AreNotStaleWithoutEncryptedOnes) {
  EXPECT_FALSE(areThoseStale());
  make("clear", 0, 0);
  EXPECT_FALSE(areThoseStale());
}

TEST_F(SessionFilesOfAProfile, AreNotStaleWhereBothKindsAreWritten) {
  make("clear", 0, 60);
  make("encrypted", 0, 60);
  EXPECT_FALSE(areThoseStale());
  make("encrypted", 4, 64);
  EXPECT_FALSE(areThoseStale());
}

TEST_F(SessionFilesOfAProfile, AreNotStaleWhereTheEncryptedOnesAreOld) {
  make("clear", 60, 90);
  make("encrypted", 0, 0);
  EXPECT_FALSE(areThoseStale());
}

TEST_F(SessionFilesOfAProfile, AreStaleWhereTheEncryptedOnesGoOn) {
  make("clear", 0, 0);
  make("encrypted", 5, 5);
  EXPECT_TRUE(areThoseStale());
}

TEST_F(SessionFilesOfAProfile, AreStaleWhereTheEncryptedOnesAreTheOnlyOnes) {
  make("encrypted", 0, 0);
  EXPECT_TRUE(areThoseStale());
}

TEST_F(SessionFilesOfAProfile, AreStaleOnlyWhereBothNameAndTimeOfWritingSaySo) {
  make("clear", 0, 60);
  make("encrypted", 30, 60);
  EXPECT_FALSE(areThoseStale()) << "still written";
  make("clear", 30, 30);
  make("encrypted", 30, 60);
  EXPECT_FALSE(areThoseStale()) << "begun together";
}

}  // namespace
}  // namespace BrowserSessions
