#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "DesktopSupport/Windows/WindowMatcher.h"
#include "Tests/Support/TemporaryFolder.h"

namespace TestSupport {

/// A made-up desktop: entries in one folder, the process of a window in another.
class WindowMatcherTest : public testing::Test {
 protected:
  void addEntry(const std::string& id, std::string_view more = "") {
    folder_.write("applications/" + id + ".desktop",
                  "[Desktop Entry]\nType=Application\nName=" + id + '\n' + std::string(more) + '\n');
  }

  void setProcessFile(const std::string& name, std::string_view contents) { folder_.write("proc/7/" + name, contents); }

  void setExecutable(const std::string& program) { link(program, "7/exe"); }

  /// Makes the process one of this mount namespace, or of another.
  void setSharesMounts(bool shares) {
    link("mnt:[1]", "self/ns/mnt");
    link(shares ? "mnt:[1]" : "mnt:[2]", "7/ns/mnt");
  }

  /// The id of the entry that the window is matched with. Its process is known unless `pid` is empty.
  std::string match(const DesktopSupport::Window& window, std::optional<pid_t> pid = 7) {
    DesktopSupport::DesktopEntries entries({folder_.path() / "applications"});
    const auto* entry = matchWindow(entries, window, DesktopSupport::ProcessInfo(pid, folder_.path() / "proc"));
    filesRead_ = entries.filesRead();
    return entry == nullptr ? "none" : entry->id;
  }

  static DesktopSupport::Window windowOf(const std::string& instance, const std::string& windowClass) {
    return {.instance = instance, .windowClass = windowClass};
  }

  /// A window as most Wayland compositors describe it: by its application's id alone.
  static DesktopSupport::Window waylandWindow(const std::string& id) {
    return {.instance = "", .windowClass = id, .title = "", .applicationID = id};
  }

  TemporaryFolder folder_;
  std::size_t filesRead_ = 0;

 private:
  void link(const std::string& target, const std::string& name) {
    const auto link = folder_.path() / "proc" / name;
    std::filesystem::create_directories(link.parent_path());
    std::filesystem::remove(link);
    std::filesystem::create_symlink(target, link);
  }
};

}  // namespace TestSupport
