#include <cstdlib>
#include <string>

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include "DesktopSupport/System/FileDescriptor.h"
#include "Linux/Launching/DetachedProcess.h"

namespace {

using DesktopSupport::FileDescriptor;
using Linux::startDetached;

/// Ends this process with the exit status of a shell command. If `standardInput` is positive, the command reads a file
/// with the line "given" from there.
[[noreturn]] void exitAs(const std::string& command, int standardInput) {
  const FileDescriptor file(memfd_create("input", MFD_CLOEXEC));
  if (standardInput >= 0) {
    if (write(file.number(), "given\n", 6) != 6 || lseek(file.number(), 0, SEEK_SET) != 0)
      std::_Exit(99);
    dup2(file.number(), standardInput);
  }
  const auto process = startDetached("/bin/sh", {"-c", command}, standardInput);
  int status = -1;
  if (process)
    waitpid(*process, &status, 0);
  std::_Exit(WIFEXITED(status) ? WEXITSTATUS(status) : 98);
}

TEST(DetachedProcess, HasTheInputThatItIsGiven) {
  for (const int descriptor : {0, 1, 2, 40})
    EXPECT_EXIT(exitAs("read -r line && test \"$line\" = given", descriptor), testing::ExitedWithCode(0), "")
        << descriptor;
}

TEST(DetachedProcess, HasNoOtherStreams) {
  for (const int stream : {0, 1, 2})
    EXPECT_EXIT(exitAs("test /proc/self/fd/" + std::to_string(stream) + " -ef /dev/null", -1),
                testing::ExitedWithCode(0), "")
        << stream;
}

TEST(DetachedProcess, HasASessionOfItsOwn) {
  // The sixth field is the session.
  EXPECT_EXIT(exitAs("read -r _ _ _ _ _ session _ < /proc/$$/stat && test \"$session\" = $$", -1),
              testing::ExitedWithCode(0), "");
}

TEST(DetachedProcess, IsNotThereIfTheProgramIsMissing) {
  EXPECT_EQ(startDetached("/nonexistent/program", {}).error(), ENOENT);
}

}  // namespace
