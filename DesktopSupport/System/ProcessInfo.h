#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace DesktopSupport {

/// What /proc tells about a process. Everything is read when first asked for, and what cannot be read, as the process
/// is gone or belongs to somebody else, is absent. A process that is not known at all has nothing.
class ProcessInfo {
 public:
  explicit ProcessInfo(std::optional<pid_t> pid, const std::filesystem::path& processes = "/proc");

  [[nodiscard]] std::optional<pid_t> pid() const { return pid_; }

  /// The path of the program that runs, also where its file was replaced meanwhile.
  [[nodiscard]] std::optional<std::filesystem::path> executable() const;

  /// The file of the script that the program runs if it is an interpreter, as far as the command line tells it: an
  /// absolute path without links in its folder. Absent for code that is no file, and if there is no such file any more.
  [[nodiscard]] std::optional<std::filesystem::path> script() const;

  /// The command line, the program's name included; empty where it cannot be read.
  [[nodiscard]] std::vector<std::string> arguments() const;

  /// The variable's value at the start of the program.
  [[nodiscard]] std::optional<std::string> environment(std::string_view variable) const;

  /// The text that lists the control groups of the process, one a line; empty where it cannot be read.
  [[nodiscard]] const std::string& controlGroups() const;

  /// The application id of the Flatpak sandbox in which the process runs.
  [[nodiscard]] std::optional<std::string> flatpakId() const;

 private:
  /// The path that a link of the process leads to.
  [[nodiscard]] std::optional<std::filesystem::path> linked(const char* link) const;
  [[nodiscard]] std::optional<std::string> contents(const std::filesystem::path& file) const;
  /// The file's contents, empty where it cannot be read; kept in `cache` for the next time.
  const std::string& cachedContents(const std::filesystem::path& file, std::optional<std::string>& cache) const;

  std::optional<pid_t> pid_;
  std::filesystem::path folder_;
  mutable std::optional<std::string> environment_;
  mutable std::optional<std::string> controlGroups_;
};

}  // namespace DesktopSupport
