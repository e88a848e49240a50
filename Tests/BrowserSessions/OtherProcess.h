#pragma once

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <functional>
#include <stdexcept>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace BrowserSessions {

/// A process that is forked from this one, which must have a single thread at that time. The destructor kills it.
class OtherProcess {
 public:
  /// Tells the test a port and waits to be killed.
  using Tell = std::function<void(std::uint16_t port)>;

  /// Makes the process do `work`, and waits until it tells a port.
  explicit OtherProcess(const std::function<void(const Tell& tell)>& work) {
    int ends[2] = {};
    if (pipe(ends) != 0)
      throw std::runtime_error("no pipe");
    pid_ = fork();
    if (pid_ < 0)
      throw std::runtime_error("no other process");
    if (pid_ == 0) {
      prctl(PR_SET_PDEATHSIG, SIGKILL);
      close(ends[0]);
      work([&](std::uint16_t port) {
        const bool isTold = write(ends[1], &port, sizeof(port)) == sizeof(port);
        while (isTold)
          pause();
      });
      _exit(1);
    }
    close(ends[1]);
    if (read(ends[0], &port_, sizeof(port_)) != sizeof(port_))
      port_ = 0;
    close(ends[0]);
  }
  OtherProcess(const OtherProcess&) = delete;
  OtherProcess& operator=(const OtherProcess&) = delete;
  ~OtherProcess() {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }

  [[nodiscard]] pid_t pid() const { return pid_; }
  /// The port that it has told; 0 if it failed.
  [[nodiscard]] std::uint16_t port() const { return port_; }

 private:
  pid_t pid_ = -1;
  std::uint16_t port_ = 0;
};

}  // namespace BrowserSessions
