#include <csignal>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/DeadMount.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using TestSupport::ChildProcess;
using TestSupport::DeadMount;

/// Whether something is mounted at the path. Does not access it.
bool isMounted(const std::filesystem::path& path) {
  std::ifstream mounts("/proc/self/mountinfo");
  for (std::string line; std::getline(mounts, line);)
    if (line.find(' ' + path.string() + ' ') != std::string::npos)
      return true;
  return false;
}

/// Waits until nothing is mounted at the path.
void awaitUnmounted(const std::filesystem::path& path) {
  const int mounts = open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC);
  while (isMounted(path)) {
    pollfd change = {.fd = mounts, .events = POLLPRI, .revents = 0};
    poll(&change, 1, -1);
  }
  close(mounts);
}

class DeadMountTest : public testing::Test {
 protected:
  TestSupport::TemporaryFolder folder;
};

TEST_F(DeadMountTest, HoldsWhoeverAsksForAFolderInItUntilItsEnd) {
  std::optional<DeadMount> mount(folder.path());
  ChildProcess asking({"stat", folder.path() / "sub"}, {.captureErrors = true});
  ASSERT_TRUE(mount->awaitRequest());
  EXPECT_EQ(waitpid(asking.pid(), nullptr, WNOHANG), 0) << "it waits";
  mount.reset();
  EXPECT_NE(asking.readAll(), "");
  EXPECT_EQ(asking.wait(), 1);
}

TEST_F(DeadMountTest, IsNoLongerMountedAfterItsEnd) {
  {
    const DeadMount mount(folder.path());
    EXPECT_TRUE(isMounted(folder.path()));
  }
  EXPECT_FALSE(isMounted(folder.path()));
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(DeadMountTest, IsNoLongerMountedAfterAKilledProcess) {
  const pid_t process = fork();
  if (process == 0) {
    const DeadMount mount(folder.path());
    raise(SIGKILL);
  }
  int status = 0;
  waitpid(process, &status, 0);
  EXPECT_EQ(WTERMSIG(status), SIGKILL) << "it has mounted it";
  awaitUnmounted(folder.path());
}

TEST_F(DeadMountTest, FailsWhereThereIsNoFolder) {
  EXPECT_THROW(DeadMount(folder.path() / "none"), std::runtime_error);
}

}  // namespace
