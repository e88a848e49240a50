#include "Platform/Linux/LinuxUpdater.h"

#include <cstring>
#include <string>

#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

namespace Platform::Linux {

namespace {

constexpr const char* settings = "Updates";
constexpr const char* programName = "update-check";

/// How a process is started that has nothing to do with this one any more: neither its session nor its streams.
class DetachedSpawn {
 public:
  DetachedSpawn() {
    posix_spawnattr_init(&attributes_);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSID);
    posix_spawn_file_actions_init(&actions_);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
      posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", O_RDWR, 0);
  }
  DetachedSpawn(const DetachedSpawn&) = delete;
  DetachedSpawn& operator=(const DetachedSpawn&) = delete;
  ~DetachedSpawn() {
    posix_spawn_file_actions_destroy(&actions_);
    posix_spawnattr_destroy(&attributes_);
  }

  /// Starts the program; yields an error number, 0 where there was none.
  int start(std::string program) const {
    char* arguments[] = {program.data(), nullptr};
    pid_t ignored = 0;
    return posix_spawn(&ignored, program.c_str(), &actions_, &attributes_, arguments, environ);
  }

 private:
  posix_spawnattr_t attributes_ = {};
  posix_spawn_file_actions_t actions_ = {};
};

}  // namespace

void LinuxUpdater::checkForUpdatesInBackground() {
  if (!bundle_.value(settings, "FeedURL") || bundle_.value(settings, "AutomaticChecks") == "false")
    return;
  if (const int problem = DetachedSpawn().start(bundle_.path() / programName))
    log_.write("the update check could not be started: " + std::string(std::strerror(problem)));
}

}  // namespace Platform::Linux
