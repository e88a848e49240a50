#include "Linux/Launching/DetachedProcess.h"

#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

namespace Linux {

namespace {

/// The attributes of a process that shares neither the session nor the streams of this one.
class DetachedSpawn {
 public:
  explicit DetachedSpawn(int standardInput) {
    posix_spawnattr_init(&attributes_);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSID);
    posix_spawn_file_actions_init(&actions_);
    // Before the other streams, as the descriptor may be one of them.
    if (standardInput >= 0)
      posix_spawn_file_actions_adddup2(&actions_, standardInput, STDIN_FILENO);
    else
      closeStream(STDIN_FILENO);
    closeStream(STDOUT_FILENO);
    closeStream(STDERR_FILENO);
  }
  DetachedSpawn(const DetachedSpawn&) = delete;
  DetachedSpawn& operator=(const DetachedSpawn&) = delete;
  ~DetachedSpawn() {
    posix_spawn_file_actions_destroy(&actions_);
    posix_spawnattr_destroy(&attributes_);
  }

  std::expected<pid_t, int> start(const char* program, char* const* arguments) const {
    pid_t process = 0;
    if (const int problem = posix_spawn(&process, program, &actions_, &attributes_, arguments, environ))
      return std::unexpected(problem);
    return process;
  }

 private:
  void closeStream(int stream) { posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", O_RDWR, 0); }

  posix_spawnattr_t attributes_ = {};
  posix_spawn_file_actions_t actions_ = {};
};

}  // namespace

std::expected<pid_t, int> startDetached(std::string program, std::vector<std::string> arguments, int standardInput) {
  std::vector<char*> texts = {program.data()};
  for (std::string& argument : arguments)
    texts.push_back(argument.data());
  texts.push_back(nullptr);
  return DetachedSpawn(standardInput).start(program.c_str(), texts.data());
}

}  // namespace Linux
