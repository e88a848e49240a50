#pragma once

#include <chrono>
#include <filesystem>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include <sys/types.h>

#include "ScriptableApps/Finder/FolderSearch.h"

namespace ScriptableApps {

/// The marks in a list of a process's inotify watches, the text of one of the files in /proc/PID/fdinfo.
std::vector<FileMark> marksIn(std::string_view fileInformation);

/// The folders that a process watches for changes, as a file manager does with those that it shows, and the files if it
/// watches any. Their paths are found by a search.
struct ProcessFolders {
  std::vector<std::filesystem::path> folders = {};
  /// Whether these are all that it watches, and there is one at least.
  bool areAll = false;
};

/// The folders that processes watch. What cannot be read, as of another user's process, is empty.
class WatchedFolders {
 public:
  /// `searchTime` is how long to look for their paths.
  explicit WatchedFolders(std::chrono::milliseconds searchTime) : searchTime_(searchTime) {}

  /// Says which processes will be asked for, so that their folders are looked for together.
  void expect(std::vector<pid_t> processes) { expected_ = std::move(processes); }

  const ProcessFolders& of(pid_t process);

 private:
  void search();

  std::chrono::milliseconds searchTime_;
  std::vector<pid_t> expected_ = {};
  std::map<pid_t, ProcessFolders> folders_ = {};
};

}  // namespace ScriptableApps
