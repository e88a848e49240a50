#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ScriptableApps/Finder/Finder.h"
#include "Tests/Support/FakeService.h"
#include "Tests/Support/TemporaryFolder.h"

namespace TestSupport {

inline constexpr const char* interfaceOwner = "org.freedesktop.FileManager1";
inline constexpr const char* otherFileManager = "org.gnome.Nautilus";

/// A file manager with whatever properties of org.freedesktop.FileManager1 the test gives it.
class FakeFileManager : public FakeService {
 public:
  explicit FakeFileManager(const char* name = interfaceOwner)
      : FakeService(name, "/org/freedesktop/FileManager1", R"(
          <node>
            <interface name="org.freedesktop.DBus.Properties">
              <method name="GetAll"><arg type="s"/><arg type="a{sv}" direction="out"/></method>
            </interface>
          </node>)") {}

  void has(const std::string& properties) { answer("GetAll", '(' + properties + ",)"); }
  void fails(const char* error) {
    answer("GetAll", [error](GDBusMethodInvocation* invocation) {
      g_dbus_method_invocation_return_dbus_error(invocation, error, "No.");
    });
  }
  void staysSilent() {
    answer("GetAll", [](GDBusMethodInvocation* invocation) { g_object_unref(invocation); });
  }
};

/// How long to wait for a program that does not answer: longer than others need for an answer on a busy machine.
inline constexpr std::chrono::milliseconds shortly{2000};

/// The folders that the Finder lists. Its usual patience is too short for a program that starts on a busy machine.
inline AppleScript::Result<std::vector<ScriptableApps::OpenFolder>> openFolders(
    std::chrono::milliseconds patience = std::chrono::minutes(1)) {
  ScriptableApps::Finder finder(patience, std::chrono::minutes(1));
  const auto root = finder.open();
  if (!root)
    return std::unexpected(root.error());
  std::vector<ScriptableApps::OpenFolder> folders;
  for (const auto& window : static_cast<const ScriptableApps::FinderRoot&>(**root).windows())
    folders.push_back(window.folder());
  return folders;
}

/// Their paths.
inline AppleScript::Result<std::vector<std::string>> openPaths(
    std::chrono::milliseconds patience = std::chrono::minutes(1)) {
  const auto folders = openFolders(patience);
  if (!folders)
    return std::unexpected(folders.error());
  std::vector<std::string> paths;
  for (const auto& folder : *folders)
    paths.push_back(folder.path);
  return paths;
}

/// The paths. Puts what is logged meanwhile into `log`.
inline std::vector<std::string> openPathsAndLog(std::string& log,
                                                std::chrono::milliseconds patience = std::chrono::minutes(1)) {
  testing::internal::CaptureStderr();
  const auto paths = openPaths(patience);
  log = testing::internal::GetCapturedStderr();
  return paths.value_or(std::vector<std::string>{paths ? "" : paths.error().message});
}

/// Three folders for file managers to show.
class FinderTest : public testing::Test {
 protected:
  FinderTest() {
    for (const auto* folder : {&a_, &b_, &c_})
      std::filesystem::create_directory(*folder);
  }

  static std::string uri(const std::filesystem::path& folder) { return "'file://" + folder.string() + '\''; }

  TemporaryFolder folder_;
  std::filesystem::path a_ = folder_.path() / "a";
  std::filesystem::path b_ = folder_.path() / "b";
  std::filesystem::path c_ = folder_.path() / "c";
};

}  // namespace TestSupport
