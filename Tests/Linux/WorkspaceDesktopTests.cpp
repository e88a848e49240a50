#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "Linux/Workspace.h"
#include "Platform/Fake/FakeServices.h"
#include "Tests/Support/BusNames.h"
#include "Tests/Support/TemporaryFolder.h"

using Platform::URL;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

constexpr std::size_t longestArgument = 131071;

/// Installs handlers of the tests' own schemes.
class HandlersEnvironment : public testing::Environment {
 public:
  void SetUp() override {
    const std::filesystem::path data = std::getenv("XDG_DATA_HOME");
    received = data / "received";
    std::filesystem::create_directories(data / "applications");
    ASSERT_EQ(mkfifo(received.c_str(), 0600), 0);
    std::ofstream(data / "applications/test.exec.desktop")
        << "[Desktop Entry]\nType=Application\nName=Exec\nMimeType=x-scheme-handler/testexec;\nExec=sh -c 'printf %%s "
           "\"$1\" > "
        << received.string() << "' sh %u\n";
    // Claims to be activated by the bus, but its name is not a valid bus name.
    std::ofstream(data / "applications/test-nameless.desktop")
        << "[Desktop Entry]\nType=Application\nName=Nameless\nDBusActivatable=true\nExec=sh -c 'printf %%s "
           "\"$1\" > "
        << received.string() << "' sh %u\n";
    std::ofstream(data / "applications/test.missing.desktop")
        << "[Desktop Entry]\nType=Application\nName=Missing\nMimeType=x-scheme-handler/testmissing;\nExec=true "
           "%u\nDBusActivatable=true\n";
    std::ofstream(data / "applications/mimeapps.list")
        << "[Default Applications]\nx-scheme-handler/testexec=test.exec.desktop\n"
           "x-scheme-handler/testnameless=test-nameless.desktop\n"
           "x-scheme-handler/testmissing=test.missing.desktop\n";
  }

  /// The pipe into which the handler that is started by its command line writes its argument.
  static inline std::filesystem::path received;
};

const auto* const environment = testing::AddGlobalTestEnvironment(new HandlersEnvironment);

class WorkspaceTest : public testing::Test {
 protected:
  void open(const std::string& text) {
    workspace.open(URL::parse(text).value());
    workspace.finishHandOvers();
  }

  Platform::Fake::FakeLog log;
  Linux::Workspace workspace{log};
};

TEST_F(WorkspaceTest, LogsASchemeWithoutAHandler) {
  open("nobody-handles-this:x");
  EXPECT_THAT(log.messages, ElementsAre(HasSubstr("no application is registered for its scheme")));
}

TEST_F(WorkspaceTest, LogsAHandlerThatTheBusCannotStart) {
  open("testmissing:x");
  EXPECT_THAT(log.messages, ElementsAre(HasSubstr("testmissing: URL: ")));
}

TEST_F(WorkspaceTest, NamesTheLimitThatOneArgumentOfAProcessHas) {
  open("testexec:" + std::string(longestArgument, 'a'));
  EXPECT_THAT(log.messages, ElementsAre(HasSubstr("holds at most 131071")));
}

TEST_F(WorkspaceTest, HandsTheLongestArgumentToAHandlerThatIsStartedWithIt) {
  const std::string url = "testexec:" + std::string(longestArgument - std::string("testexec:").size(), 'a');
  open(url);
  EXPECT_THAT(log.messages, IsEmpty());

  std::ifstream pipe(HandlersEnvironment::received);  // opens once the handler has opened it
  EXPECT_TRUE(std::string(std::istreambuf_iterator<char>(pipe), {}) == url);
}

TEST_F(WorkspaceTest, StartsAHandlerThatClaimsToBeActivatedByTheBusAndHasNoNameThere) {
  open("testnameless:x");
  EXPECT_THAT(log.messages, IsEmpty());
  std::ifstream pipe(HandlersEnvironment::received);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(pipe), {}), "testnameless:x");
}

TEST_F(WorkspaceTest, RefusesAURLThatNoArrayOfTheBusHoldsAndHandsTheLongestThatFitsToAHostThatTheBusStarts) {
  constexpr std::size_t longest = 67'108'859;
  const TestSupport::TemporaryFolder folder;
  const std::filesystem::path hostLog = folder.path() / "log";
  TestSupport::setActivationEnvironment("DESKLOOM_HOST_LOG", hostLog);
  const std::string beginning = "deskloom://gleanery/";
  open(beginning + std::string(longest + 1 - beginning.size(), 'x'));
  EXPECT_THAT(std::exchange(log.messages, {}), ElementsAre(HasSubstr("holds at most 67108859")));
  const std::string url = beginning + std::string(longest - beginning.size(), 'x');
  open(url);
  EXPECT_THAT(log.messages, IsEmpty());

  // The host answers before it writes, so the next answer comes after that writing.
  TestSupport::openURL("com.quillary.Deskloom", "deskloom://next");
  std::ifstream file(hostLog);
  std::string line;
  std::getline(file, line);
  EXPECT_TRUE(line == url);
}

TEST_F(WorkspaceTest, ReportsNothingIfNothingIsUnderWay) {
  workspace.finishHandOvers();
  EXPECT_THAT(log.messages, IsEmpty());
}

}  // namespace
