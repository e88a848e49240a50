#include "Tests/Support/ProcessKeeper.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fstream>
#include <stdexcept>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace TestSupport {

namespace {

sigset_t keeperSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGCHLD);
  sigaddset(&signals, SIGTERM);
  return signals;
}

void killChildren() {
  std::ifstream children("/proc/thread-self/children");
  for (pid_t child = 0; children >> child;)
    kill(child, SIGKILL);
}

// When a process ends, its children become the keeper's before the keeper is notified, so none is missed.
[[noreturn]] void keep(pid_t program) {
  const sigset_t signals = keeperSignals();
  int result = 0;
  bool isEnding = false;
  for (;;) {
    int status = 0;
    pid_t ended = 0;
    while ((ended = waitpid(-1, &status, WNOHANG)) > 0)
      if (ended == program) {
        result = exitStatus(status);
        isEnding = true;
      }
    if (ended < 0)
      _exit(result);
    if (isEnding)
      killChildren();
    isEnding = sigwaitinfo(&signals, nullptr) == SIGTERM || isEnding;
  }
}

[[noreturn]] void startAndKeep(const std::function<void()>& become, int report) {
  const sigset_t signals = keeperSignals();
  sigset_t before;
  sigprocmask(SIG_BLOCK, &signals, &before);
  prctl(PR_SET_CHILD_SUBREAPER, 1);
  const pid_t program = fork();
  if (program == 0) {
    sigprocmask(SIG_SETMASK, &before, nullptr);
    become();
    _exit(127);
  }
  const bool isReported = write(report, &program, sizeof program) == sizeof program;
  // A pipe must end with the program, not with the keeper.
  close_range(0, ~0U, 0);
  if (program < 0 || !isReported)
    _exit(127);
  keep(program);
}

}  // namespace

KeptProgram startKept(const std::function<void()>& become) {
  std::array<int, 2> report{};
  if (pipe2(report.data(), O_CLOEXEC) != 0)
    throw std::runtime_error("no pipe for a program's keeper");
  KeptProgram kept;
  kept.keeper = fork();
  if (kept.keeper == 0)
    startAndKeep(become, report[1]);
  close(report[1]);
  const bool isReported = read(report[0], &kept.program, sizeof kept.program) == sizeof kept.program;
  close(report[0]);
  if (kept.keeper < 0 || !isReported || kept.program < 0)
    throw std::runtime_error("a program cannot be started");
  return kept;
}

int exitStatus(int waitStatus) {
  return WIFSIGNALED(waitStatus) ? 128 + WTERMSIG(waitStatus) : WEXITSTATUS(waitStatus);
}

}  // namespace TestSupport
