#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "BrowserSessions/Chromium/SessionLog.h"
#include "Tests/BrowserSessions/SessionLogWriter.h"

namespace BrowserSessions {
namespace {

using namespace std::string_literals;

std::vector<std::string> payloads(std::string_view bytes) {
  std::vector<std::string> found;
  auto log = SessionLog::open(bytes);
  while (const auto command = log ? log->next() : std::nullopt)
    found.emplace_back(command->payload);
  return found;
}

TEST(SessionLog, YieldsItsRecords) {
  const std::string bytes = SessionLogWriter().record(7, "first").record(255, "").record(200, "last").bytes();
  auto log = SessionLog::open(bytes);
  ASSERT_TRUE(log);
  auto command = log->next();
  ASSERT_TRUE(command);
  EXPECT_EQ(command->id, 7);
  EXPECT_EQ(command->payload, "first");
  command = log->next();
  ASSERT_TRUE(command);
  EXPECT_EQ(command->id, 255);
  EXPECT_EQ(command->payload, "");
  command = log->next();
  ASSERT_TRUE(command);
  EXPECT_EQ(command->id, 200);
  EXPECT_EQ(command->payload, "last");
  EXPECT_FALSE(log->next());
  EXPECT_FALSE(log->next());
}

TEST(SessionLog, TakesRecordsOfTheLargestSize) {
  const std::string large(65534, 'x');
  EXPECT_EQ(payloads(SessionLogWriter().record(1, large).record(2, "y").bytes()),
            (std::vector<std::string>{large, "y"}));
}

TEST(SessionLog, EndsBeforeARecordThatIsNotWhole) {
  const std::string whole = SessionLogWriter().record(1, "one").bytes();
  const std::string both = SessionLogWriter().record(1, "one").record(2, "two").bytes();
  for (std::size_t size = whole.size(); size < both.size(); ++size)
    EXPECT_EQ(payloads(both.substr(0, size)), std::vector<std::string>{"one"}) << size;
}

TEST(SessionLog, EndsAtARecordWithoutASize) {
  EXPECT_EQ(payloads(SessionLogWriter().record(1, "one").bytes() + "\0\0\x04\0\x01two"s),
            std::vector<std::string>{"one"});
}

TEST(SessionLog, EndsAtARecordThatClaimsToBeHuge) {
  EXPECT_EQ(payloads(SessionLogWriter().record(1, "one").bytes() + "\xFF\xFF\x01two"), std::vector<std::string>{"one"});
}

TEST(SessionLog, IsCompleteOnceItHasTheMarker) {
  const auto isComplete = [](const std::string& bytes) { return SessionLog::open(bytes)->isComplete(); };
  EXPECT_FALSE(isComplete(SessionLogWriter().bytes()));
  EXPECT_FALSE(isComplete(SessionLogWriter().record(9, "window").bytes()));
  EXPECT_TRUE(isComplete(SessionLogWriter().record(9, "window").marker().bytes()));
  EXPECT_TRUE(isComplete(SessionLogWriter().marker().record(9, "window").bytes()));
}

TEST(SessionLog, StaysAtItsRecordWhenAskedWhetherItIsComplete) {
  const std::string bytes = SessionLogWriter().record(9, "window").marker().bytes();
  auto log = SessionLog::open(bytes);
  ASSERT_TRUE(log && log->isComplete());
  EXPECT_EQ(log->next()->payload, "window");
}

TEST(SessionLog, HasNoRecordsYetIfItEndsWithinItsHeader) {
  const std::string header = SessionLogWriter().bytes();
  for (std::size_t size = 0; size <= header.size(); ++size) {
    auto log = SessionLog::open(std::string_view(header).substr(0, size));
    ASSERT_TRUE(log) << size;
    EXPECT_FALSE(log->isComplete()) << size;
    EXPECT_FALSE(log->next()) << size;
  }
}

TEST(SessionLog, IsNothingElse) {
  for (const std::string_view bytes : {"X", "SNSX", "snss\3\0\0\0", "<html></html>"}) {
    const auto log = SessionLog::open(bytes);
    ASSERT_FALSE(log) << bytes;
    EXPECT_EQ(log.error(), "The file is not a session log.");
  }
}

TEST(SessionLog, SaysThatItIsEncrypted) {
  for (const std::int32_t version : {2, 4, 5}) {
    const auto log = SessionLog::open(SessionLogWriter(version).marker().bytes());
    ASSERT_FALSE(log) << version;
    EXPECT_EQ(log.error(), "The session log is encrypted.");
  }
}

TEST(SessionLog, SaysThatItsVersionIsNotKnown) {
  for (const std::int32_t version : {-1, 0, 1, 6, 1 << 30}) {
    const auto log = SessionLog::open(SessionLogWriter(version).marker().bytes());
    ASSERT_FALSE(log) << version;
    EXPECT_EQ(log.error(), "The session log has the unknown version " + std::to_string(version) + ".");
  }
}

}  // namespace
}  // namespace BrowserSessions
