#include "Tests/Support/ChildProcess.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <utility>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "DesktopSupport/System/FileDescriptor.h"
#include "Tests/Support/ProcessKeeper.h"

namespace TestSupport {

namespace {

void applyEnvironment(const std::map<std::string, std::string>& environment) {
  for (const auto& [name, value] : environment)
    if (value.empty())
      unsetenv(name.c_str());
    else
      setenv(name.c_str(), value.c_str(), /*overwrite=*/1);
}

[[noreturn]] void become(std::vector<std::string> arguments, const ChildProcess::Options& options, int output) {
  dup2(output, STDOUT_FILENO);
  if (options.captureErrors)
    dup2(output, STDERR_FILENO);
  applyEnvironment(options.environment);
  std::vector<char*> argv;
  for (std::string& argument : arguments)
    argv.push_back(argument.data());
  argv.push_back(nullptr);
  execvp(argv[0], argv.data());
  _exit(127);
}

/// Waits until the descriptor can be read from. Returns false if it takes too long.
bool isReadable(int descriptor, ChildProcess::Duration atMost) {
  pollfd waited = {.fd = descriptor, .events = POLLIN, .revents = 0};
  int count = 0;
  do
    count = poll(&waited, 1, milliseconds(atMost));
  while (count < 0 && errno == EINTR);
  return count > 0;
}

/// The beginning of a line, for an error.
std::string shortened(const std::string& line) {
  constexpr std::size_t longest = 200;
  return line.size() > longest ? line.substr(0, longest) + "…" : line;
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& arguments, const Options& options)
    : program_(arguments.at(0)) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) {
    ADD_FAILURE() << "no pipe for " << program_;
    return;
  }
  const auto start = [&] { become(arguments, options, ends[1]); };
  if (options.hasHelpers) {
    const KeptProgram kept = startKept(start);
    pid_ = kept.program;
    waited_ = kept.keeper;
  } else {
    waited_ = pid_ = fork();
    if (pid_ == 0)
      start();
  }
  close(ends[1]);
  output_ = ends[0];
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept
    : program_(std::move(other.program_)),
      pid_(std::exchange(other.pid_, -1)),
      waited_(std::exchange(other.waited_, -1)),
      output_(std::exchange(other.output_, -1)),
      buffer_(std::move(other.buffer_)),
      lines_(std::move(other.lines_)) {}

ChildProcess::~ChildProcess() {
  if (waited_ > 0) {
    // A keeper kills the program and its helpers, then ends.
    kill(waited_, waited_ == pid_ ? SIGKILL : SIGTERM);
    takeExitStatus();
  }
  if (output_ >= 0)
    close(output_);
}

bool ChildProcess::readMore(Duration atMost, const std::string& awaited) {
  if (!isReadable(output_, atMost))
    throw std::runtime_error(program_ + ": waited too long for " + awaited + "; output so far:" + outputSoFar());
  std::array<char, 65536> bytes{};
  ssize_t count = 0;
  do
    count = read(output_, bytes.data(), bytes.size());
  while (count < 0 && errno == EINTR);
  if (count <= 0)
    return false;
  buffer_.append(bytes.data(), static_cast<std::size_t>(count));
  return true;
}

std::string ChildProcess::outputSoFar() const {
  std::string text;
  for (const std::string& line : lines_)
    text += "\n  " + line;
  if (!buffer_.empty())
    text += "\n  " + shortened(buffer_);
  return text.empty() ? " nothing" : text;
}

std::optional<std::string> ChildProcess::readLine(Duration atMost) {
  const std::string awaited = "line " + std::to_string(lines_.size() + 1);
  std::size_t searched = 0;
  std::size_t end = 0;
  while ((end = buffer_.find('\n', searched)) == std::string::npos) {
    searched = buffer_.size();
    if (!readMore(atMost, awaited))
      return std::nullopt;
  }
  std::string line = buffer_.substr(0, end);
  buffer_.erase(0, end + 1);
  lines_.push_back(shortened(line));
  return line;
}

std::string ChildProcess::readAll(Duration atMost) {
  while (readMore(atMost, "the end of the output")) {
  }
  return std::exchange(buffer_, {});
}

int ChildProcess::wait(Duration atMost) {
  if (waited_ <= 0)
    return -1;
  // GNU libc 2.36 declares pidfd_open only for C.
  const DesktopSupport::FileDescriptor process(static_cast<int>(syscall(SYS_pidfd_open, waited_, 0)));
  if (process.isOpen() && !isReadable(process.number(), atMost))
    throw std::runtime_error(program_ + ": waited too long for its end; output so far:" + outputSoFar());
  return takeExitStatus();
}

int ChildProcess::takeExitStatus() {
  int status = 0;
  while (waitpid(waited_, &status, 0) < 0 && errno == EINTR) {
  }
  pid_ = waited_ = -1;
  return exitStatus(status);
}

int run(const std::vector<std::string>& arguments, const ChildProcess::Options& options) {
  ChildProcess process(arguments, options);
  process.readAll();
  return process.wait();
}

}  // namespace TestSupport
