#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace DesktopSupport {

/// What /proc tells about a process. Everything is read when it is first asked for. What cannot be read is absent, as
/// when the process is gone or belongs to another user. An unknown process (no `pid`, or a number that is none) has
/// nothing.
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

  /// The label that AppArmor gave the process, such as "snap.firefox.firefox (enforce)"; empty if there is none.
  [[nodiscard]] std::string securityLabel() const;

  /// Whether the process has the same mounted file systems as this one, so that it is in no sandbox. `nullopt` if the
  /// kernel does not tell.
  [[nodiscard]] std::optional<bool> sharesMounts() const;

  /// Whether a path of the process leads to the same file here.
  [[nodiscard]] bool sharesFile(const std::filesystem::path& file) const;

  /// Whether there is such a process.
  [[nodiscard]] bool exists() const;

  /// Whether the process belongs to this user and is in no further PID namespace, so that the number by which it knows
  /// itself is its number here.
  [[nodiscard]] bool isOwnAndOutsideNamespaces() const;

 private:
  /// The target of one of the links in the process's folder.
  [[nodiscard]] std::optional<std::filesystem::path> linked(const char* link) const;
  [[nodiscard]] std::optional<std::string> contents(const std::filesystem::path& file) const;
  /// The file's contents, empty if it cannot be read. Keeps them in `cache`.
  const std::string& cachedContents(const std::filesystem::path& file, std::optional<std::string>& cache) const;

  std::optional<pid_t> pid_;
  std::filesystem::path processes_;
  std::filesystem::path folder_;
  mutable std::optional<std::filesystem::path> executable_;
  mutable std::optional<std::string> environment_;
  mutable std::optional<std::string> controlGroups_;
};

/// The number of this process in the PID namespace that `processes` describes. Another program in that namespace knows
/// this process by the same number. `nullopt` if the folder does not describe this process.
std::optional<pid_t> ownProcessID(const std::filesystem::path& processes = "/proc");

}  // namespace DesktopSupport
