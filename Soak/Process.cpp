#include "Soak/Process.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Soak {

namespace {

using Clock = std::chrono::steady_clock;

pid_t start(std::vector<std::string>& arguments) {
  std::vector<char*> texts;
  for (std::string& argument : arguments)
    texts.push_back(argument.data());
  texts.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, Process::log().c_str(), O_WRONLY | O_CREAT | O_APPEND,
                                   0600);
  pid_t process = -1;
  const int problem = posix_spawnp(&process, texts[0], &actions, nullptr, texts.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (problem != 0)
    throw std::runtime_error(arguments[0] + " cannot be started");
  return process;
}

std::string contentsOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

ProcessEnd::ProcessEnd(pid_t process) : descriptor_(static_cast<int>(syscall(SYS_pidfd_open, process, 0))) {}

bool ProcessEnd::isWithin(std::chrono::milliseconds time) const {
  if (!descriptor_.isOpen())
    return true;
  pollfd end = {.fd = descriptor_.number(), .events = POLLIN, .revents = 0};
  return poll(&end, 1, static_cast<int>(std::max<long>(time.count(), 0))) > 0;
}

std::filesystem::path Process::log() {
  return std::filesystem::path(std::getenv("XDG_RUNTIME_DIR")) / "soak-log";
}

Process::Process(std::vector<std::string> arguments) : pid_(start(arguments)) {}

Process::~Process() {
  if (isOver_)
    return;
  send(SIGKILL);
  wait();
}

Process::End Process::wait() {
  int status = 0;
  rusage usage = {};
  while (wait4(pid_, &status, 0, &usage) < 0 && errno == EINTR) {
  }
  isOver_ = true;
  return {.status = status, .peakMemory = usage.ru_maxrss * 1024};
}

bool sendTo(pid_t process, const std::filesystem::path& program, int signal) {
  const DesktopSupport::FileDescriptor handle(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
  std::error_code ignored;
  const auto running = std::filesystem::read_symlink("/proc/" + std::to_string(process) + "/exe", ignored);
  return running == std::filesystem::canonical(program) &&
         syscall(SYS_pidfd_send_signal, handle.number(), signal, nullptr, 0) == 0;
}

std::vector<pid_t> processesOf(const std::filesystem::path& program) {
  const auto file = std::filesystem::canonical(program);
  const std::string desktop = std::string("DESKLOOM_DESKTOP_ID=") + std::getenv("DESKLOOM_DESKTOP_ID") + '\0';
  std::vector<pid_t> processes;
  for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
    std::error_code ignored;
    if (std::filesystem::read_symlink(entry.path() / "exe", ignored) == file &&
        contentsOf(entry.path() / "environ").find(desktop) != std::string::npos)
      processes.push_back(std::stoi(entry.path().filename()));
  }
  return processes;
}

// A process that ends may have started another that is not in the list yet, so several looks in a row must find none.
std::size_t awaitEndOf(const std::filesystem::path& program, std::chrono::milliseconds time, pid_t exception) {
  constexpr int looks = 5;
  const auto deadline = Clock::now() + time;
  for (int seenNone = 0; seenNone < looks;) {
    auto processes = processesOf(program);
    std::erase(processes, exception);
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
    if (!processes.empty() && !ProcessEnd(processes.front()).isWithin(left))
      return processes.size();
    seenNone = processes.empty() ? seenNone + 1 : 0;
  }
  return 0;
}

}  // namespace Soak
