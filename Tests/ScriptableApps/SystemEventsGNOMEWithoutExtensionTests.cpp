#include <algorithm>
#include <csignal>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/Screen/Screen.h"
#include "Tests/ScriptableApps/OpenProcesses.h"
#include "Tests/Support/Compositor.h"
#include "Tests/Support/ScreenReader.h"
#include "Tests/Support/WindowPrograms.h"

namespace {

using testing::HasSubstr;
using TestSupport::ChildProcess;

constexpr const char* advice = "gnome-extensions enable gleanery@quillary.com";

/// GNOME Shell without the product's extension, and programs that screen readers can read.
class SystemEventsWithoutExtensionTest : public testing::Test {
 protected:
  ~SystemEventsWithoutExtensionTest() override {
    programs.clear();
    EXPECT_TRUE(compositor->waitForNoWindows());
  }

  // Starts a program and waits for its window.
  void start(const std::vector<std::string>& arguments, const std::string& title) {
    programs.emplace_back(arguments);
    EXPECT_TRUE(compositor->awaitWindow(title));
  }

  // Waits until screen readers see the windows of the last program.
  void awaitAccessibility() {
    const TestSupport::ScreenReader reader;
    EXPECT_TRUE(reader.awaitWindow(programs.back().pid()));
  }

  // Asks until these programs are listed: on a busy machine, one that is asked may not answer in time.
  static bool comesToList(const std::vector<std::string>& names) {
    return TestSupport::Compositor::waitUntil([&names] {
      auto listed = namesOfOpenProcesses();
      std::ranges::sort(listed);
      return listed == names;
    });
  }

  const std::unique_ptr<TestSupport::Compositor> compositor = TestSupport::Compositor::running();
  std::vector<ChildProcess> programs;
};

TEST_F(SystemEventsWithoutExtensionTest, ListsProgramsThatScreenReadersCanReadAndThoseUnderX) {
  start({"mousepad", "--disable-server"}, "Untitled 1 - Mousepad");
  awaitAccessibility();
  start({"gnome-calculator"}, "Calculator");
  awaitAccessibility();
  programs.push_back(TestSupport::startXTerm("a terminal"));
  EXPECT_TRUE(compositor->awaitWindow("a terminal"));
  programs.push_back(TestSupport::startFeatherPad());  // which screen readers cannot read
  EXPECT_TRUE(compositor->awaitWindow("Untitled"));
  EXPECT_TRUE(comesToList({"Calculator", "Mousepad", "XTerm"}));
}

TEST_F(SystemEventsWithoutExtensionTest, SaysInTheLogHowToListAllWindows) {
  testing::internal::CaptureStderr();
  const auto names = namesOfOpenProcesses();
  const std::string log = testing::internal::GetCapturedStderr();
  EXPECT_THAT(log, HasSubstr(advice));
  EXPECT_EQ(std::ranges::count(log, '\n'), 1) << log;
}

TEST_F(SystemEventsWithoutExtensionTest, LeavesOutAProgramThatHangs) {
  start({"mousepad", "--disable-server"}, "Untitled 1 - Mousepad");
  awaitAccessibility();
  start({"gnome-calculator"}, "Calculator");
  awaitAccessibility();
  kill(programs.front().pid(), SIGSTOP);
  EXPECT_TRUE(comesToList({"Calculator"}));
  kill(programs.front().pid(), SIGCONT);
}

}  // namespace
