#include <stop_token>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "BrowserSessions/GNOMEWeb/GNOMEWebSession.h"
#include "Tests/BrowserSessions/BrowserSessionPrinting.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using BrowserSessions::gnomeWebSession;
using BrowserSessions::isOutOfDate;
using testing::HasSubstr;

constexpr const char* file = "session_state.xml";

std::string sessionAt(const std::string& url) {
  return "<?xml version=\"1.0\"?>\n<session><window active-tab=\"0\"><embed url=\"" + url +
         "\" title=\"\"/></window></session>\n";
}

TEST(GNOMEWebSession, IsWhatWasSaved) {
  const TestSupport::TemporaryFolder folder;
  folder.write(file, sessionAt("a:"));
  EXPECT_EQ(gnomeWebSession(folder.path())->session.at(0).tabs.at(0).url, "a:");
}

TEST(GNOMEWebSession, IsEmptyWithoutAFile) {
  const TestSupport::TemporaryFolder folder;
  EXPECT_EQ(gnomeWebSession(folder.path()), BrowserSessions::SessionReading());
  EXPECT_EQ(gnomeWebSession(folder.path() / "missing"), BrowserSessions::SessionReading());
}

TEST(GNOMEWebSession, SaysWhichFileCannotBeReadAndWhy) {
  const TestSupport::TemporaryFolder folder;
  for (const std::string& contents : {std::string(), std::string("<session>"), sessionAt("a:").substr(0, 60)}) {
    folder.write(file, contents);
    EXPECT_THAT(gnomeWebSession(folder.path()).error(), HasSubstr((folder.path() / file).string()));
  }
  folder.write(file, sessionAt("a:"));
  std::filesystem::resize_file(folder.path() / file, (32 << 20) + 1);
  EXPECT_THAT(gnomeWebSession(folder.path()).error(), HasSubstr("too large"));
}

TEST(GNOMEWebSession, CannotBeReadFromWhatIsNoFile) {
  const TestSupport::TemporaryFolder folder;
  std::filesystem::create_directories(folder.path() / "a" / file);
  EXPECT_FALSE(gnomeWebSession(folder.path() / "a"));
  std::filesystem::create_directories(folder.path() / "b");
  std::filesystem::create_symlink(file, folder.path() / "b" / file);
  EXPECT_FALSE(gnomeWebSession(folder.path() / "b")) << "a link to itself";
  std::filesystem::create_directories(folder.path() / "c");
  ASSERT_EQ(mkfifo((folder.path() / "c" / file).c_str(), 0600), 0);
  EXPECT_FALSE(gnomeWebSession(folder.path() / "c"));
}

TEST(GNOMEWebSession, IsOutOfDateIfAWindowShowsWhatNoTabHas) {
  const BrowserSessions::BrowserSession session = {{{{"A", "a:"}, {"B", "b:"}}, 1}, {{{"C", "c:"}}, 0}};
  EXPECT_FALSE(isOutOfDate(session, {}));
  EXPECT_FALSE(isOutOfDate(session, {"B", "C"}));
  EXPECT_FALSE(isOutOfDate(session, {"C", "A", "A"}));
  EXPECT_TRUE(isOutOfDate(session, {"B", "D"}));
  EXPECT_TRUE(isOutOfDate(session, {"", "C"}));
  EXPECT_TRUE(isOutOfDate({}, {"A"}));
}

TEST(GNOMEWebSession, HasAProblemIfItIsOutOfDate) {
  const TestSupport::TemporaryFolder folder;
  folder.write(file, "<session><window><embed url='a:' title='A'/></window></session>");
  EXPECT_THAT(gnomeWebSession(folder.path(), {"A"})->problems, testing::IsEmpty());
  EXPECT_THAT(gnomeWebSession(folder.path(), {"B"})->problems,
              testing::ElementsAre("The list of GNOME Web's tabs may be out of date: a window shows a page that is not "
                                   "saved yet in " +
                                   folder.path().string() + "."));
}

TEST(GNOMEWebSession, IsNotOutOfDateIfTheTitleOfATabWasCut) {
  const BrowserSessions::BrowserSession session = {{{{std::string(999, 'x') + "…", "a:"}}, 0}};
  EXPECT_FALSE(isOutOfDate(session, {std::string(5000, 'x')}));
  EXPECT_TRUE(isOutOfDate(session, {std::string(5000, 'y')}));
}

TEST(GNOMEWebSession, IsAWholeOneAlsoWhileItIsReplaced) {
  const TestSupport::TemporaryFolder folder;
  const std::string sessions[] = {sessionAt("a:"), sessionAt("b:" + std::string(100'000, 'b'))};
  folder.write(file, sessions[0]);
  const std::jthread web([&](const std::stop_token& stop) {
    for (unsigned round = 0; !stop.stop_requested(); ++round)
      std::filesystem::rename(folder.write("new", sessions[round % 2]), folder.path() / file);
  });
  for (int round = 0; round < 300; ++round) {
    const auto session = gnomeWebSession(folder.path());
    ASSERT_TRUE(session && session->session.size() == 1);
    EXPECT_THAT(session->session.at(0).tabs.at(0).url.substr(0, 2), testing::AnyOf("a:", "b:"));
  }
}

}  // namespace
