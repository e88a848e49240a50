#include <stop_token>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "BrowserSessions/GNOMEWeb/WebSession.h"
#include "Tests/BrowserSessions/BrowserSessionPrinting.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using BrowserSessions::isBehind;
using BrowserSessions::webSession;
using testing::HasSubstr;

constexpr const char* file = "session_state.xml";

std::string sessionAt(const std::string& url) {
  return "<?xml version=\"1.0\"?>\n<session><window active-tab=\"0\"><embed url=\"" + url +
         "\" title=\"\"/></window></session>\n";
}

TEST(WebSession, IsWhatWasSaved) {
  const TestSupport::TemporaryFolder folder;
  folder.write(file, sessionAt("a:"));
  EXPECT_EQ(webSession(folder.path())->at(0).tabs.at(0).url, "a:");
}

TEST(WebSession, IsEmptyWithoutAFile) {
  const TestSupport::TemporaryFolder folder;
  EXPECT_EQ(webSession(folder.path()), BrowserSessions::BrowserSession());
  EXPECT_EQ(webSession(folder.path() / "missing"), BrowserSessions::BrowserSession());
}

TEST(WebSession, SaysWhichFileCannotBeReadAndWhy) {
  const TestSupport::TemporaryFolder folder;
  for (const std::string& contents : {std::string(), std::string("<session>"), sessionAt("a:").substr(0, 60)}) {
    folder.write(file, contents);
    EXPECT_THAT(webSession(folder.path()).error(), HasSubstr((folder.path() / file).string()));
  }
  folder.write(file, sessionAt("a:"));
  std::filesystem::resize_file(folder.path() / file, (32 << 20) + 1);
  EXPECT_THAT(webSession(folder.path()).error(), HasSubstr("too large"));
}

TEST(WebSession, CannotBeReadFromWhatIsNoFile) {
  const TestSupport::TemporaryFolder folder;
  std::filesystem::create_directories(folder.path() / "a" / file);
  EXPECT_FALSE(webSession(folder.path() / "a"));
  std::filesystem::create_directories(folder.path() / "b");
  std::filesystem::create_symlink(file, folder.path() / "b" / file);
  EXPECT_FALSE(webSession(folder.path() / "b")) << "a link to itself";
  std::filesystem::create_directories(folder.path() / "c");
  ASSERT_EQ(mkfifo((folder.path() / "c" / file).c_str(), 0600), 0);
  EXPECT_FALSE(webSession(folder.path() / "c"));
}

TEST(WebSession, IsBehindWhereAWindowShowsWhatNoTabHas) {
  const BrowserSessions::BrowserSession session = {{{{"A", "a:"}, {"B", "b:"}}, 1}, {{{"C", "c:"}}, 0}};
  EXPECT_FALSE(isBehind(session, {}));
  EXPECT_FALSE(isBehind(session, {"B", "C"}));
  EXPECT_FALSE(isBehind(session, {"C", "A", "A"}));
  EXPECT_TRUE(isBehind(session, {"B", "D"}));
  EXPECT_TRUE(isBehind(session, {"", "C"}));
  EXPECT_TRUE(isBehind({}, {"A"}));
}

TEST(WebSession, IsNotBehindWhereTheTitleThatATabHasWasCut) {
  const BrowserSessions::BrowserSession session = {{{{std::string(999, 'x') + "…", "a:"}}, 0}};
  EXPECT_FALSE(isBehind(session, {std::string(5000, 'x')}));
  EXPECT_TRUE(isBehind(session, {std::string(5000, 'y')}));
}

TEST(WebSession, IsAWholeOneAlsoWhileItIsReplaced) {
  const TestSupport::TemporaryFolder folder;
  const std::string sessions[] = {sessionAt("a:"), sessionAt("b:" + std::string(100'000, 'b'))};
  folder.write(file, sessions[0]);
  const std::jthread web([&](const std::stop_token& stop) {
    for (unsigned round = 0; !stop.stop_requested(); ++round)
      std::filesystem::rename(folder.write("new", sessions[round % 2]), folder.path() / file);
  });
  for (int round = 0; round < 300; ++round) {
    const auto session = webSession(folder.path());
    ASSERT_TRUE(session && session->size() == 1);
    EXPECT_THAT(session->at(0).tabs.at(0).url.substr(0, 2), testing::AnyOf("a:", "b:"));
  }
}

}  // namespace
