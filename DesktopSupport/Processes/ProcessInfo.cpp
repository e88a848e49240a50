#include "DesktopSupport/Processes/ProcessInfo.h"

#include <algorithm>
#include <climits>
#include <cstdint>

#include <unistd.h>

#include "DesktopSupport/Processes/CommandLine.h"
#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/KeyFileGroup.h"
#include "DesktopSupport/System/Text.h"
#include "DesktopSupport/System/TimeLimit.h"

namespace DesktopSupport {

namespace {

using std::filesystem::path;

// Twice the kernel's default limit for arguments and environment together.
constexpr std::size_t maximumSize = 4 << 20;

std::vector<std::string> separatedByNul(std::string_view text) {
  std::vector<std::string> parts;
  while (!text.empty()) {
    parts.emplace_back(text.substr(0, text.find('\0')));
    text.remove_prefix(std::min(parts.back().size() + 1, text.size()));
  }
  return parts;
}

bool isFile(const path& file) {
  std::error_code ignored;
  return std::filesystem::is_regular_file(file, ignored);
}

// The numbers in the line of /proc/<pid>/status that begins with `label`.
std::vector<std::int64_t> statusNumbers(std::string_view status, std::string_view label) {
  std::vector<std::int64_t> numbers;
  for (const std::string_view line : separated(status, '\n'))
    if (line.starts_with(label))
      for (const std::string_view word : separated(line.substr(label.size()), '\t'))
        numbers.push_back(parseNumber<std::int64_t>(word).value_or(-1));
  return numbers;
}

// Namespaces have names such as "mnt:[4026531841]".
std::optional<path> namespaceNamed(const path& link) {
  std::error_code error;
  path name = std::filesystem::read_symlink(link, error);
  return error ? std::nullopt : std::optional(std::move(name));
}

}  // namespace

ProcessInfo::ProcessInfo(std::optional<pid_t> pid, const path& processes) : processes_(processes) {
  if (!pid || *pid <= 0)
    return;
  pid_ = pid;
  folder_ = processes / std::to_string(*pid);
}

std::optional<std::string> ProcessInfo::contents(const path& file) const {
  return pid_ ? fileContents(folder_ / file, maximumSize) : std::nullopt;
}

const std::string& ProcessInfo::cachedContents(const path& file, std::optional<std::string>& cache) const {
  if (!cache)
    cache = contents(file).value_or("");
  return *cache;
}

std::optional<path> ProcessInfo::linked(const char* link) const {
  std::error_code error;
  const path target = pid_ ? std::filesystem::read_symlink(folder_ / link, error) : path();
  return target.is_absolute() ? std::optional(target) : std::nullopt;
}

std::optional<path> ProcessInfo::executable() const {
  constexpr std::string_view deleted = " (deleted)";
  if (!executable_) {
    std::string file = linked("exe").value_or("").string();
    // A file's own name may end like this.
    if (file.ends_with(deleted) && !isFile(file))
      file.resize(file.size() - deleted.size());
    executable_ = file;
  }
  return executable_->empty() ? std::nullopt : executable_;
}

std::optional<path> ProcessInfo::script() const {
  const auto program = executable();
  const auto script = program ? scriptOf(program->filename().string(), arguments()) : std::nullopt;
  // No file has such a name, and a path object takes a hundred times the text's memory.
  if (!script || script->size() > PATH_MAX)
    return std::nullopt;
  path file = *script;
  if (file.is_relative()) {
    const auto folder = linked("cwd");
    if (!folder)
      return std::nullopt;
    file = *folder / file;
  }
  const auto found = foundWithin(fileSystemTime, [&file] {
    std::error_code error;
    const path real = std::filesystem::canonical(file.parent_path(), error) / file.filename();
    return !error && isFile(real) ? real.string() : "";
  });
  return found && !found->empty() ? std::optional<path>(*found) : std::nullopt;
}

std::vector<std::string> ProcessInfo::arguments() const {
  return separatedByNul(contents("cmdline").value_or(""));
}

std::optional<std::string> ProcessInfo::environment(std::string_view variable) const {
  const std::string start = std::string(variable) + '=';
  for (const std::string& setting : separatedByNul(cachedContents("environ", environment_)))
    if (setting.starts_with(start))
      return setting.substr(start.size());
  return std::nullopt;
}

const std::string& ProcessInfo::controlGroups() const {
  return cachedContents("cgroup", controlGroups_);
}

std::optional<std::string> ProcessInfo::flatpakID() const {
  const auto information = contents("root/.flatpak-info");
  const auto application = information ? KeyFileGroup::parse(*information, "Application") : std::nullopt;
  return application ? application->text("name") : std::nullopt;
}

std::string ProcessInfo::securityLabel() const {
  // An older kernel has the label only where that of the first security module is.
  for (const char* file : {"attr/apparmor/current", "attr/current"})
    if (auto label = contents(file))
      return *std::move(label);
  return "";
}

std::optional<bool> ProcessInfo::sharesMounts() const {
  const auto mounts = pid_ ? namespaceNamed(folder_ / "ns/mnt") : std::nullopt;
  const auto own = mounts ? namespaceNamed(processes_ / "self/ns/mnt") : std::nullopt;
  return own ? std::optional(mounts == own) : std::nullopt;
}

bool ProcessInfo::sharesFile(const path& file) const {
  const auto found = foundWithin(fileSystemTime, [&] {
    std::error_code error;
    return std::filesystem::equivalent(folder_ / "root" / file.relative_path(), file, error) ? "yes" : "";
  });
  return pid_ && found == "yes";
}

bool ProcessInfo::exists() const {
  std::error_code ignored;
  return pid_ && std::filesystem::is_directory(folder_, ignored);
}

bool ProcessInfo::isOwnAndOutsideNamespaces() const {
  const std::string status = contents("status").value_or("");
  const auto users = statusNumbers(status, "Uid:");
  // The numbers in the PID namespaces from that of the folder to the process's own.
  const auto numbers = statusNumbers(status, "NSpid:");
  return !users.empty() && users.front() == std::int64_t{getuid()} && pid_ &&
         numbers == std::vector{std::int64_t{*pid_}};
}

std::optional<pid_t> ownProcessID(const path& processes) {
  std::error_code error;
  return parseNumber<pid_t>(std::filesystem::read_symlink(processes / "self", error).string());
}

}  // namespace DesktopSupport
