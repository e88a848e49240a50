#pragma once

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ScriptableApps/Finder/WatchedFolders.h"
#include "Tests/ScriptableApps/FinderTest.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/Patience.h"
#include "Tests/Support/TestDesktop.h"

namespace TestSupport {

/// Folders for real file managers to show.
class ShownFoldersTest : public testing::Test {
 protected:
  /// Makes a folder and returns its path.
  std::string make(const std::filesystem::path& name) const {
    std::filesystem::create_directories(folder_.path() / name);
    return folder_.path() / name;
  }

  /// Waits until the process watches the folder. The kernel tells nobody when that begins.
  static void awaitWatch(const ChildProcess& process, const std::string& folder) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (std::chrono::steady_clock::now() < deadline) {
      ScriptableApps::WatchedFolders watched(std::chrono::seconds(1));
      const auto& folders = watched.of(process.pid()).folders;
      if (std::ranges::find(folders, std::filesystem::path(folder)) != folders.end())
        return;
      std::this_thread::yield();
    }
    FAIL() << folder << " is not watched";
  }

  /// The paths that the Finder lists, in any order.
  static auto shows(const std::vector<std::string>& folders) {
    std::vector<std::string> paths;
    for (const std::string& folder : folders)
      paths.push_back(folder + '/');
    return testing::UnorderedElementsAreArray(paths);
  }

  TemporaryFolder folder_;
};

/// Real file managers on an X server.
class FileManagersTest : public ShownFoldersTest {
 protected:
  ~FileManagersTest() override { EXPECT_TRUE(desktop_.waitForNoWindows()); }

  TestDesktop desktop_;
};

}  // namespace TestSupport
