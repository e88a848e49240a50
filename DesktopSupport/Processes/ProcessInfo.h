#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace DesktopSupport {

/// What /proc tells about a process. Everything is read when it is first asked for. What cannot be read is absent, as
/// when the process is gone or belongs to another user. An unknown process (no `pid`) has nothing.
class ProcessInfo {
 public:
  explicit ProcessInfo(std::optional<pid_t> pid, const std::filesystem::path& processes = "/proc");

  [[nodiscard]] std::optional<pid_t> pid() const { return pid_; }

  /// The path of the program, even if its file has been replaced since.
  [[nodiscard]] std::optional<std::filesystem::path> executable() const;

  /// The script that the program runs if it is an interpreter, as far as the command line tells: an absolute path
  /// without links in its folder. Absent if the code is not in a file, or the file is gone.
  [[nodiscard]] std::optional<std::filesystem::path> script() const;

  /// The command line, including the program's name; empty if it cannot be read.
  [[nodiscard]] std::vector<std::string> arguments() const;

  /// The value that the variable had when the program started.
  [[nodiscard]] std::optional<std::string> environment(std::string_view variable) const;

  /// The text that lists the process's control groups, one a line; empty if it cannot be read.
  [[nodiscard]] const std::string& controlGroups() const;

  /// The application id of the Flatpak sandbox that the process runs in.
  [[nodiscard]] std::optional<std::string> flatpakID() const;

 private:
  /// The target of one of the links in the process's folder.
  [[nodiscard]] std::optional<std::filesystem::path> linked(const char* link) const;
  [[nodiscard]] std::optional<std::string> contents(const std::filesystem::path& file) const;
  /// The file's contents, empty if it cannot be read. Keeps them in `cache`.
  const std::string& cachedContents(const std::filesystem::path& file, std::optional<std::string>& cache) const;

  std::optional<pid_t> pid_;
  std::filesystem::path folder_;
  mutable std::optional<std::string> environment_;
  mutable std::optional<std::string> controlGroups_;
};

}  // namespace DesktopSupport
