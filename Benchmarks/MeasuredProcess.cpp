#include "Benchmarks/MeasuredProcess.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Benchmarks {

namespace {

double inMilliseconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) * 1000 + static_cast<double>(time.tv_usec) / 1000;
}

[[noreturn]] void become(const std::string& command) {
  const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
  dup2(nowhere, STDOUT_FILENO);
  const std::string replaced = "exec " + command;
  execl("/bin/sh", "sh", "-c", replaced.c_str(), nullptr);
  _exit(127);
}

}  // namespace

MeasuredProcess::MeasuredProcess(std::string command)
    : command_(std::move(command)), start_(std::chrono::steady_clock::now()), pid_(fork()) {
  if (pid_ == 0)
    become(command_);
}

double MeasuredProcess::milliseconds() const {
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start_).count();
}

Measurement MeasuredProcess::end() const {
  int status = 0;
  rusage usage{};
  const pid_t ended = wait4(pid_, &status, 0, &usage);
  const double elapsed = milliseconds();
  if (ended != pid_ || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    std::fprintf(stderr, "failed: %s\n", command_.c_str());
    std::exit(1);
  }
  return {elapsed, inMilliseconds(usage.ru_utime) + inMilliseconds(usage.ru_stime),
          static_cast<double>(usage.ru_maxrss) / 1024};
}

}  // namespace Benchmarks
