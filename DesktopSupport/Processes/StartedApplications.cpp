#include "DesktopSupport/Processes/StartedApplications.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <system_error>

#include <unistd.h>

#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/Text.h"

namespace DesktopSupport {

namespace {

using std::filesystem::path;

// systemd's own slices are not nested deeper.
constexpr int deepestSlice = 8;

std::vector<pid_t> processesIn(const path& group) {
  constexpr std::size_t maximumSize = 1 << 20;
  const std::string text = fileContents(group / "cgroup.procs", maximumSize).value_or("");
  std::vector<pid_t> processes;
  for (const std::string_view line : separated(text, '\n'))
    // A process of another namespace is listed as 0.
    if (const pid_t process = parseNumber<pid_t>(line).value_or(0); process > 0)
      processes.push_back(process);
  std::ranges::sort(processes);
  return processes;
}

void addApplications(const path& slice, int depth, std::vector<StartedApplication>& applications) {
  std::error_code error;
  for (std::filesystem::directory_iterator group(slice, error); !error && group != end(group); group.increment(error)) {
    const std::string name = group->path().filename().string();
    if (name.ends_with(".slice") && depth < deepestSlice)
      addApplications(group->path(), depth + 1, applications);
    const auto unit = ApplicationUnit::find('/' + name);
    if (!unit)
      continue;
    if (auto processes = processesIn(group->path()); !processes.empty())
      applications.push_back({*unit, std::move(processes)});
  }
}

}  // namespace

pid_t StartedApplication::mainProcess() const {
  const auto named = parseNumber<pid_t>(unit.random);
  return named && std::ranges::binary_search(processes, *named) ? *named : processes.front();
}

path applicationSlice() {
  const std::string user = std::to_string(getuid());
  return path("/sys/fs/cgroup/user.slice") / ("user-" + user + ".slice") / ("user@" + user + ".service") / "app.slice";
}

std::vector<StartedApplication> startedApplications(const path& slice) {
  std::vector<StartedApplication> applications;
  addApplications(slice, 0, applications);
  std::ranges::sort(applications, {}, &StartedApplication::mainProcess);
  return applications;
}

}  // namespace DesktopSupport
