#include "DesktopSupport/System/TimeLimit.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <string_view>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "DesktopSupport/System/FileDescriptor.h"

namespace DesktopSupport {

namespace {

using Clock = std::chrono::steady_clock;

/// The other process: does the work and writes what it has found. It closes the files of this process, such as sockets
/// and pipes, which would otherwise stay open as long as it lives.
[[noreturn]] void workAside(const std::function<std::string()>& work, int output) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);  // nobody needs the result then
  dup2(output, STDIN_FILENO);
  close_range(STDIN_FILENO + 1, UINT_MAX, 0);
  const std::string found = work();
  std::string_view rest = found;
  while (!rest.empty()) {
    const ssize_t written = write(STDIN_FILENO, rest.data(), rest.size());
    if (written <= 0)
      _exit(1);
    rest.remove_prefix(static_cast<std::size_t>(written));
  }
  _exit(0);
}

/// Everything up to the end of the file; `nullopt` if that is not reached in time.
std::optional<std::string> readWithin(std::chrono::milliseconds limit, int input) {
  const auto deadline = Clock::now() + limit;
  std::string text;
  std::array<char, 4096> piece = {};
  while (true) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    pollfd readable = {.fd = input, .events = POLLIN, .revents = 0};
    const int ready = poll(&readable, 1, static_cast<int>(std::max<std::chrono::milliseconds::rep>(left.count(), 0)));
    if (ready < 0 && errno == EINTR)
      continue;
    if (ready <= 0)
      return std::nullopt;
    const ssize_t received = read(input, piece.data(), piece.size());
    if (received <= 0)
      return text;
    text.append(piece.data(), static_cast<std::size_t>(received));
  }
}

}  // namespace

std::optional<std::string> foundWithin(std::chrono::milliseconds limit, const std::function<std::string()>& work) {
  std::array<int, 2> ends = {-1, -1};
  if (pipe2(ends.data(), O_CLOEXEC) != 0)
    return std::nullopt;
  const FileDescriptor input(ends[0]);
  pid_t process = -1;
  {
    const FileDescriptor output(ends[1]);
    process = fork();
    if (process == 0)
      workAside(work, output.number());
  }
  if (process < 0)
    return std::nullopt;
  auto found = readWithin(limit, input.number());
  int status = 0;
  if (found)
    waitpid(process, &status, 0);
  return status == 0 ? found : std::nullopt;
}

}  // namespace DesktopSupport
