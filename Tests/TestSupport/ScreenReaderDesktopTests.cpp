#include <algorithm>
#include <string>

#include <gmock/gmock.h>
#include <unistd.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/ScreenReader.h"
#include "Tests/Support/TestDesktop.h"
#include "Tests/Support/TestInput.h"

using testing::IsSupersetOf;
using TestSupport::AccessibleItem;
using TestSupport::AccessibleObject;
using TestSupport::ChildProcess;
using TestSupport::ScreenReader;

namespace {

bool shows(const AccessibleObject& window, const std::string& text) {
  return std::ranges::any_of(window.items(), [&](const AccessibleItem& item) { return item.text == text; });
}

ChildProcess startCalculator(const ChildProcess::Options& options) {
  return ChildProcess({"gnome-calculator"}, options);
}

class ScreenReaderTest : public testing::Test {
 protected:
  ~ScreenReaderTest() override {
    calculator = std::nullopt;
    EXPECT_TRUE(reader.waitUntil([this] { return reader.windows().empty(); }));
  }

  ScreenReader reader;
  std::optional<ChildProcess> calculator =
      startCalculator({.environment = {ScreenReader::accessibility}, .captureErrors = true});
};

TEST_F(ScreenReaderTest, ReadsWhatAWindowHolds) {
  const auto window = reader.awaitWindow();
  ASSERT_TRUE(window);
  EXPECT_EQ(window->item(), (AccessibleItem{"window", "Calculator", ""}));
  EXPECT_EQ(window->process(), calculator->pid());
  EXPECT_THAT(window->items(), IsSupersetOf({AccessibleItem{"button", "Undo", ""}, AccessibleItem{"label", "Basic", ""},
                                             AccessibleItem{"label", "7", ""}}));
}

TEST_F(ScreenReaderTest, KnowsWhoseAWindowIs) {
  ASSERT_TRUE(reader.awaitWindow(calculator->pid()));
  EXPECT_TRUE(reader.windows(getpid()).empty());
}

TEST_F(ScreenReaderTest, SeesWhatTheKeyboardDoes) {
  const TestSupport::TestDesktop desktop;
  const TestSupport::TestInput keyboard(desktop);
  const auto window = reader.awaitWindow();
  const auto id = desktop.waitForTitle("Calculator");
  ASSERT_TRUE(window && id);
  ASSERT_TRUE(desktop.waitUntil([&] { return desktop.activeWindow() == id; }));
  for (const std::uint32_t key : {XKB_KEY_6, XKB_KEY_plus, XKB_KEY_3, XKB_KEY_6, XKB_KEY_Return})
    keyboard.press(key);
  EXPECT_TRUE(reader.waitUntil([&] { return shows(*window, "42"); }));
}

TEST_F(ScreenReaderTest, PressesButtons) {
  const auto window = reader.awaitWindow();
  ASSERT_TRUE(window);
  for (const auto* button : {"4", "0", "+", "2", "="})
    EXPECT_TRUE(window->press(button)) << button;
  EXPECT_TRUE(reader.waitUntil([&] { return shows(*window, "42"); }));
  EXPECT_FALSE(window->press("no such button"));
}

TEST_F(ScreenReaderTest, FindsAWindowThatIsGoneEmpty) {
  const auto window = reader.awaitWindow();
  ASSERT_TRUE(window);
  calculator = std::nullopt;
  EXPECT_EQ(window->item(), AccessibleItem());
  EXPECT_TRUE(window->items().empty());
  EXPECT_FALSE(window->press("="));
}

}  // namespace
