#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "ScriptableApps/SystemEvents/RunningApplications.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

namespace TestSupport {

/// A made-up desktop: entries in one folder, processes in another, windows in a list.
class RunningApplicationsTest : public testing::Test {
 protected:
  void addEntry(const std::string& id, const std::string& name, std::string_view more = "") {
    folder_.write("applications/" + id + ".desktop",
                  "[Desktop Entry]\nType=Application\nName=" + name + '\n' + std::string(more) + '\n');
  }

  void addProcess(pid_t pid, const std::string& program) {
    const auto process = folder_.path() / "proc" / std::to_string(pid);
    std::filesystem::create_directories(process);
    std::filesystem::create_symlink(program, process / "exe");
  }

  /// Adds a process whose program is a new file with this name. Yields the file's path.
  std::string addProgram(pid_t pid, const std::string& name) {
    const std::string program = folder_.write("bin/" + name, "");
    addProcess(pid, program);
    return program;
  }

  /// Adds a process of an interpreter with this command line.
  void addInterpreter(pid_t pid, const std::string& name, const std::vector<std::string>& arguments) {
    addProgram(pid, name);
    std::string commandLine = name + '\0';
    for (const std::string& argument : arguments)
      commandLine += argument + '\0';
    folder_.write("proc/" + std::to_string(pid) + "/cmdline", commandLine);
  }

  DesktopSupport::Window& addWindow(const std::string& windowClass, std::optional<pid_t> pid = std::nullopt) {
    const auto id = static_cast<DesktopSupport::WindowID>(list_.windows.size() + 1);
    return list_.windows.emplace_back(
        DesktopSupport::Window{.id = id, .instance = windowClass, .windowClass = windowClass, .pid = pid});
  }

  /// Adds a window of the application with this name, which is the window's class and the program's name.
  DesktopSupport::Window& addApplication(const std::string& name) {
    const auto [known, isNew] = pids_.emplace(name, 1000 + static_cast<pid_t>(pids_.size()));
    if (isNew)
      addProgram(known->second, name);
    return addWindow(name, known->second);
  }

  ScriptableApps::RunningApplications running() {
    DesktopSupport::DesktopEntries entries({folder_.path() / "applications"});
    return ScriptableApps::runningApplications(list_, entries, folder_.path() / "proc");
  }
  std::vector<ScriptableApps::RunningApplication> applications() { return running().applications; }
  std::vector<std::string> problems() { return running().problems; }

  std::vector<std::string> names() {
    std::vector<std::string> names;
    for (const ScriptableApps::RunningApplication& application : applications())
      names.push_back(application.name);
    return names;
  }

  std::vector<std::string> files() {
    std::vector<std::string> files;
    for (const ScriptableApps::RunningApplication& application : applications())
      files.push_back(application.file);
    return files;
  }

  using Names = std::vector<std::string>;
  TemporaryFolder folder_;
  EnvironmentVariable path_{"PATH", folder_.path() / "bin"};
  std::map<std::string, pid_t> pids_;
  EnvironmentVariable language_{"LANGUAGE", "C"};
  DesktopSupport::WindowList list_;
};

}  // namespace TestSupport
