#include "DesktopSupport/ProcessInfo.h"

#include <algorithm>

#include "DesktopSupport/FileContents.h"
#include "DesktopSupport/KeyFileGroup.h"

namespace DesktopSupport {

namespace {

// Twice what the kernel lets arguments and environment have together by default.
constexpr std::size_t maximumSize = 4 << 20;

std::vector<std::string> separatedByNul(std::string_view text) {
  std::vector<std::string> parts;
  while (!text.empty()) {
    parts.emplace_back(text.substr(0, text.find('\0')));
    text.remove_prefix(std::min(parts.back().size() + 1, text.size()));
  }
  return parts;
}

}  // namespace

ProcessInfo::ProcessInfo(std::optional<pid_t> pid, const std::filesystem::path& processes) : pid_(pid) {
  if (pid)
    folder_ = processes / std::to_string(*pid);
}

std::optional<std::string> ProcessInfo::contents(const std::filesystem::path& file) const {
  return pid_ ? fileContents(folder_ / file, maximumSize) : std::nullopt;
}

const std::string& ProcessInfo::cachedContents(const std::filesystem::path& file,
                                               std::optional<std::string>& cache) const {
  if (!cache)
    cache = contents(file).value_or("");
  return *cache;
}

std::optional<std::filesystem::path> ProcessInfo::executable() const {
  constexpr std::string_view deleted = " (deleted)";
  std::error_code error;
  std::string file = pid_ ? std::filesystem::read_symlink(folder_ / "exe", error).string() : "";
  if (file.ends_with(deleted))
    file.resize(file.size() - deleted.size());
  return file.starts_with('/') ? std::optional(file) : std::nullopt;
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

std::optional<std::string> ProcessInfo::flatpakId() const {
  const auto information = contents("root/.flatpak-info");
  const auto application = information ? KeyFileGroup::parse(*information, "Application") : std::nullopt;
  return application ? application->text("name") : std::nullopt;
}

}  // namespace DesktopSupport
