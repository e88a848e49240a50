#pragma once

#include <array>
#include <csignal>
#include <filesystem>
#include <stdexcept>

#include <fcntl.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

namespace BrowserSessions::Testing {

/// A Firefox profile that another process keeps locked, like a running Firefox, until the end of the scope. Makes the
/// profile if there is none. Throws on failure.
class LockedProfile {
 public:
  explicit LockedProfile(const std::filesystem::path& profile) {
    std::filesystem::create_directories(profile);
    const std::filesystem::path file = profile / ".parentlock";
    std::array<int, 2> pipe = {};
    if (pipe2(pipe.data(), O_CLOEXEC) != 0)
      throw std::runtime_error("cannot make a pipe");
    holder_ = fork();
    if (holder_ == 0)
      hold(file.c_str(), pipe[1]);
    close(pipe[1]);
    char done = 0;
    const bool isHeld = holder_ > 0 && read(pipe[0], &done, 1) == 1;
    close(pipe[0]);
    if (!isHeld) {
      end();
      throw std::runtime_error("cannot lock " + file.string());
    }
  }
  LockedProfile(const LockedProfile&) = delete;
  LockedProfile& operator=(const LockedProfile&) = delete;
  ~LockedProfile() { end(); }

  /// The process that has locked it.
  [[nodiscard]] pid_t holder() const { return holder_; }

 private:
  [[noreturn]] static void hold(const char* file, int done) {
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    const int descriptor = open(file, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor < 0 || fcntl(descriptor, F_SETLK, &lock) != 0 || write(done, "", 1) != 1)
      _exit(1);
    while (true)
      pause();
  }

  void end() const {
    if (holder_ <= 0)
      return;
    kill(holder_, SIGKILL);
    waitpid(holder_, nullptr, 0);
  }

  pid_t holder_ = -1;
};

}  // namespace BrowserSessions::Testing
