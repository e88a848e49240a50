#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "Tests/ScriptableApps/FileManagersTest.h"
#include "Tests/Support/Compositor.h"

// What the Finder promises on every compositor that tells about its windows. Included by a test program for each.

namespace {

using testing::ElementsAre;
using TestSupport::ChildProcess;
using TestSupport::openPaths;
using TestSupport::openPathsAndLog;

class FileManagersOnWaylandTest : public TestSupport::ShownFoldersTest {
 protected:
  ~FileManagersOnWaylandTest() override { EXPECT_TRUE(compositor_->waitForNoWindows()); }

  // Brings each of the windows to the front. Their folder is then listed first.
  void expectThatTheFrontComesFirst(const std::vector<std::string>& folders, const std::string& titleEnd = "") {
    std::vector<std::string> titles;
    for (const std::string& folder : folders)
      titles.push_back(std::filesystem::path(folder).filename().string() + titleEnd);
    expectThatTheFrontComesFirst(folders, titles);
  }

  // The same for windows with these titles.
  void expectThatTheFrontComesFirst(const std::vector<std::string>& folders, const std::vector<std::string>& titles) {
    for (const std::string& title : titles)
      ASSERT_TRUE(compositor_->awaitWindow(title)) << title;
    for (std::size_t index = 0; index < folders.size(); ++index) {
      const std::string& folder = folders[index];
      EXPECT_TRUE(compositor_->focus(titles[index])) << titles[index];
      std::string log;
      const auto paths = openPathsAndLog(log);
      EXPECT_THAT(paths, shows(folders));
      EXPECT_EQ(paths.front(), folder + '/');
      EXPECT_EQ(log, "");
    }
  }

  const std::unique_ptr<TestSupport::Compositor> compositor_ = TestSupport::Compositor::running();
};

TEST_F(FileManagersOnWaylandTest, ShowNautilusTheWindowInFrontFirst) {
  const std::string first = make("first");
  const std::string second = make("second one");
  const ChildProcess nautilus({"nautilus", "--new-window", first, second});
  expectThatTheFrontComesFirst({first, second});
}

TEST_F(FileManagersOnWaylandTest, ShowThunarTheWindowInFrontFirst) {
  const std::string first = make("first");
  const std::string second = make("second one");
  const ChildProcess thunar({"thunar", first, second});
  awaitWatch(thunar, first);
  awaitWatch(thunar, second);
  expectThatTheFrontComesFirst({first, second}, " - Thunar");
}

// Nautilus has the name on the bus that Thunar would take otherwise.
TEST_F(FileManagersOnWaylandTest, ShowNautilusBesideThunarTheWindowInFrontFirst) {
  const std::string first = make("first");
  const std::string second = make("second one");
  const std::string third = make("third");
  const ChildProcess nautilus({"nautilus", "--new-window", first, second});
  ASSERT_TRUE(compositor_->awaitWindow("first"));
  const ChildProcess thunar({"thunar", third});
  awaitWatch(thunar, third);
  expectThatTheFrontComesFirst({first, second, third}, {"first", "second one", "third - Thunar"});
}

TEST_F(FileManagersOnWaylandTest, ShowNemoTheWindowInFrontFirst) {
  const std::string first = make("first");
  const std::string second = make("second one");
  const ChildProcess nemo({"nemo", first, second});
  awaitWatch(nemo, first);
  awaitWatch(nemo, second);
  expectThatTheFrontComesFirst({first, second});
}

TEST_F(FileManagersOnWaylandTest, ShowCajaUnderX) {
  const std::string shown = make("shown");
  const ChildProcess caja({"caja", "--no-desktop", shown}, {.environment = {{"GDK_BACKEND", "x11"}}});
  awaitWatch(caja, shown);
  expectThatTheFrontComesFirst({shown});
}

TEST_F(FileManagersOnWaylandTest, ShowDolphinTheWindowInFrontFirst) {
  const std::string first = make("first");
  const std::string second = make("second one");
  for (const char* platform : {"wayland", "xcb"}) {
    const ChildProcess one({"dolphin", "--new-window", first}, {.environment = {{"QT_QPA_PLATFORM", platform}}});
    const ChildProcess other({"dolphin", "--new-window", second}, {.environment = {{"QT_QPA_PLATFORM", platform}}});
    awaitWatch(one, first);
    awaitWatch(other, second);
    expectThatTheFrontComesFirst({first, second}, " — Dolphin");
  }
}

}  // namespace
