#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Linux/Updater.h"
#include "Platform/Fake/FakeServices.h"
#include "Tests/Support/TemporaryFolder.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

/// A bundle whose update check is a script that writes its session and its standard streams into a pipe.
class UpdaterTest : public testing::Test {
 protected:
  UpdaterTest() {
    const auto program = folder.write("update-check",
                                      "#!/bin/sh\n"
                                      "session=$(cut -d' ' -f6 /proc/$$/stat)\n"
                                      "streams=$(readlink /proc/$$/fd/0 /proc/$$/fd/1 /proc/$$/fd/2)\n"
                                      "printf '%s\\n' \"$session\" \"$streams\" $# > \"$0.report\"\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    mkfifo((program.string() + ".report").c_str(), 0600);
  }
  ~UpdaterTest() override {
    while (waitpid(-1, nullptr, 0) > 0) {
    }
  }

  void check(const std::string& settings) {
    folder.write("Info.ini", "[Bundle]\nIdentifier=com.example.Plugin\n" + settings);
    const Linux::Bundle bundle(folder.path());
    Linux::Updater(bundle, log).checkForUpdatesInBackground();
  }

  /// The lines that the update check writes. Waits for them.
  std::vector<std::string> report() {
    std::ifstream pipe(folder.path() / "update-check.report");
    std::vector<std::string> lines;
    for (std::string line; std::getline(pipe, line);)
      lines.push_back(line);
    return lines;
  }

  static bool nothingWasStarted() { return waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD; }

  TestSupport::TemporaryFolder folder;
  Platform::Fake::FakeLog log;
};

TEST_F(UpdaterTest, StartsTheCheckDetachedAndDoesNotWaitForIt) {
  check("[Updates]\nFeedURL=https://example.com/appcast.xml\n");
  // The script waits until its report is read, which begins only after it was started.
  const auto lines = report();
  ASSERT_EQ(lines.size(), 5U);
  EXPECT_NE(lines[0], std::to_string(getsid(0))) << "a session of its own";
  EXPECT_THAT(std::vector(lines.begin() + 1, lines.end()), ElementsAre("/dev/null", "/dev/null", "/dev/null", "0"));
  EXPECT_THAT(log.messages, IsEmpty());
}

TEST_F(UpdaterTest, StartsNothingWithoutAFeed) {
  for (const auto* settings : {"", "[Updates]\n", "[Updates]\nFeedURL=\n", "[Other]\nFeedURL=https://example.com\n"}) {
    check(settings);
    EXPECT_TRUE(nothingWasStarted()) << settings;
  }
  EXPECT_THAT(log.messages, IsEmpty());
}

TEST_F(UpdaterTest, StartsNothingIfAutomaticChecksAreOff) {
  check("[Updates]\nFeedURL=https://example.com/appcast.xml\nAutomaticChecks=false\n");
  EXPECT_TRUE(nothingWasStarted());
}

TEST_F(UpdaterTest, LogsThatTheCheckCannotBeStarted) {
  std::filesystem::remove(folder.path() / "update-check");
  check("[Updates]\nFeedURL=https://example.com/appcast.xml\n");
  EXPECT_THAT(log.messages, ElementsAre(HasSubstr("the update check could not be started: ")));
}

}  // namespace
