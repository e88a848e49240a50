#include <chrono>
#include <optional>
#include <stop_token>
#include <thread>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "BrowserSessions/Firefox/FirefoxSession.h"
#include "Tests/BrowserSessions/MozillaLZ4File.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using BrowserSessions::firefoxSession;
using BrowserSessions::Testing::mozillaLZ4File;
using testing::HasSubstr;

const std::filesystem::path newest = "sessionstore-backups/recovery.jsonlz4";
const std::filesystem::path previous = "sessionstore-backups/recovery.baklz4";

std::string sessionAt(const std::string& url) {
  return mozillaLZ4File(R"({"version":["sessionrestore",1],"windows":[{"tabs":[{"entries":[{"url":")" + url +
                        R"("}],"index":1}],"selected":1}],"selectedWindow":1})");
}

// A profile that was locked an hour ago.
class FirefoxSession : public testing::Test {
 protected:
  FirefoxSession() {
    std::filesystem::create_symlink("127.0.0.1:+4711", folder_.path() / "lock");
    setTime("lock", std::chrono::hours(-1));
  }

  // Sets the time of a file, or of a link itself, relative to the start of the test.
  void setTime(const std::filesystem::path& file, std::chrono::nanoseconds fromStart) const {
    const auto time = (start_ + fromStart).time_since_epoch();
    const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
    const timespec written = {.tv_sec = seconds.count(), .tv_nsec = (time - seconds).count()};
    const timespec times[] = {written, written};
    EXPECT_EQ(
        utimensat(AT_FDCWD, (folder_.path() / file).c_str(), static_cast<const timespec*>(times), AT_SYMLINK_NOFOLLOW),
        0);
  }

  // The address of the only tab; `nullopt` if the session cannot be read.
  [[nodiscard]] std::optional<std::string> url() const {
    const auto session = firefoxSession(folder_.path());
    return session ? std::optional(session->session.at(0).tabs.at(0).url) : std::nullopt;
  }

  std::chrono::sys_time<std::chrono::nanoseconds> start_ = std::chrono::system_clock::now();
  TestSupport::TemporaryFolder folder_;
};

TEST_F(FirefoxSession, IsWhatWasSavedLast) {
  folder_.write(newest, sessionAt("new:"));
  folder_.write(previous, sessionAt("old:"));
  EXPECT_EQ(url(), "new:");
}

TEST_F(FirefoxSession, HasANameForAPageWithoutATitle) {
  folder_.write(newest, sessionAt("http://example.com/a"));
  EXPECT_EQ(firefoxSession(folder_.path())->session.at(0).tabs.at(0).title, "example.com/a");
}

TEST_F(FirefoxSession, IsWhatWasSavedBeforeWhileThereIsNothingElse) {
  folder_.write(previous, sessionAt("old:"));
  EXPECT_EQ(url(), "old:");
}

TEST_F(FirefoxSession, IsWhatWasSavedBeforeWhereTheLastIsDamaged) {
  folder_.write(previous, sessionAt("old:"));
  const std::string whole = sessionAt("new:");
  for (const std::string& file :
       {std::string(), whole.substr(0, whole.size() - 1), mozillaLZ4File("{"),
        mozillaLZ4File(R"({"version":["sessionrestore",2],"windows":[]})"), mozillaLZ4File(0xffffffff, "x")}) {
    folder_.write(newest, file);
    EXPECT_EQ(url(), "old:");
  }
}

TEST_F(FirefoxSession, IsNotKnownUntilItIsSavedForTheFirstTimeInThisRun) {
  folder_.write(newest, sessionAt("crashed:"));
  folder_.write(previous, sessionAt("crashed:"));
  for (const auto before : {std::chrono::nanoseconds(0), std::chrono::nanoseconds(1)}) {
    setTime(newest, std::chrono::hours(-1) - before);
    setTime(previous, std::chrono::hours(-1) - before);
    EXPECT_EQ(firefoxSession(folder_.path()).error(), "The session of Firefox in " +
                                                          (folder_.path() / newest).string() +
                                                          " is unknown: It has not been saved since Firefox was "
                                                          "started.");
  }
  setTime(previous, std::chrono::hours(-1) + std::chrono::nanoseconds(1));
  EXPECT_EQ(url(), "crashed:");
  folder_.write(newest, sessionAt("new:"));
  setTime(previous, std::chrono::hours(-2));
  EXPECT_EQ(url(), "new:");
  folder_.write(newest, "damaged");
  EXPECT_EQ(url(), std::nullopt) << "what was saved before is from an earlier run";
}

TEST_F(FirefoxSession, IsNotKnownUntilItIsSavedWhereThereAreNoLinks) {
  std::filesystem::remove(folder_.path() / "lock");
  folder_.write(newest, sessionAt("new:"));
  EXPECT_EQ(url(), std::nullopt) << "nobody has ever locked the profile";
  folder_.write(".parentlock", "");
  setTime(".parentlock", std::chrono::hours(1));
  EXPECT_EQ(url(), std::nullopt);
  setTime(".parentlock", std::chrono::hours(-1));
  EXPECT_EQ(url(), "new:");
}

TEST_F(FirefoxSession, IsKnownAlsoAfterAnotherFirefoxTriedToLockTheProfile) {
  folder_.write(newest, sessionAt("new:"));
  folder_.write(".parentlock", "");
  setTime(".parentlock", std::chrono::hours(1));
  EXPECT_EQ(url(), "new:");
}

TEST_F(FirefoxSession, IsNeverThatOfAnEarlierRun) {
  folder_.write("sessionstore.jsonlz4", sessionAt("no:"));
  folder_.write("sessionstore-backups/previous.jsonlz4", sessionAt("no:"));
  folder_.write("sessionstore-backups/upgrade.jsonlz4-20261101", sessionAt("no:"));
  EXPECT_EQ(url(), std::nullopt);
}

TEST_F(FirefoxSession, SaysWhichFileCannotBeReadAndWhy) {
  EXPECT_THAT(firefoxSession(folder_.path()).error(), HasSubstr((folder_.path() / newest).string()));
  folder_.write(newest, "something else");
  EXPECT_THAT(firefoxSession(folder_.path()).error(), HasSubstr("does not begin as"));
  EXPECT_THAT(firefoxSession(folder_.path()).error(), testing::EndsWith("."));
}

TEST_F(FirefoxSession, CannotBeReadFromWhatIsNoFile) {
  std::filesystem::create_directories(folder_.path() / newest);
  EXPECT_EQ(url(), std::nullopt);
  std::filesystem::create_symlink("recovery.baklz4", folder_.path() / previous);
  EXPECT_EQ(url(), std::nullopt) << "a link to itself";
  std::filesystem::remove(folder_.path() / previous);
  ASSERT_EQ(mkfifo((folder_.path() / previous).c_str(), 0600), 0);
  EXPECT_EQ(url(), std::nullopt);
}

TEST_F(FirefoxSession, CannotBeReadFromAFileThatIsTooLarge) {
  folder_.write(newest, sessionAt("new:"));
  std::filesystem::resize_file(folder_.path() / newest, (64 << 20) + 1);
  EXPECT_EQ(url(), std::nullopt);
}

TEST_F(FirefoxSession, IsAWholeOneAlsoWhileItIsReplaced) {
  const std::string sessions[] = {sessionAt("a:"), sessionAt("b:" + std::string(100'000, 'b'))};
  folder_.write(newest, sessions[0]);
  folder_.write(previous, sessions[0]);
  const std::jthread firefox([&](const std::stop_token& stop) {
    for (unsigned round = 0; !stop.stop_requested(); ++round) {
      const auto temporary = folder_.write("sessionstore-backups/recovery.jsonlz4.tmp", sessions[round % 2]);
      std::filesystem::rename(folder_.path() / newest, folder_.path() / previous);
      std::filesystem::rename(temporary, folder_.path() / newest);
    }
  });
  for (int round = 0; round < 300; ++round)
    EXPECT_THAT(url().value_or("none").substr(0, 2), testing::AnyOf("a:", "b:"));
}

}  // namespace
