// What a user sees of hostile texts.

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/ScreenReader.h"
#include "Tests/Support/TestDesktop.h"

using testing::ElementsAre;
using testing::HasSubstr;
using TestSupport::ChildProcess;
using TestSupport::ScreenReader;

namespace {

class HostileTextsTest : public testing::Test {
 protected:
  static ChildProcess launch(const std::string& step, const TestSupport::ChildProcessOptions& options) {
    return ChildProcess({TEST_PLUGIN_PROGRAM, "deskloomplugin://run/" + step + "+quit"}, options);
  }

  TestSupport::TestDesktop desktop;
};

TEST_F(HostileTextsTest, AreInAnAlertInTheOrderThatTheyHave) {
  const ChildProcess plugin = launch("alert", {.environment = {ScreenReader::accessibility}});
  const ScreenReader reader;
  const auto alert = reader.awaitWindow(plugin.pid());
  ASSERT_TRUE(alert);
  std::vector<std::string> texts;
  for (const auto& item : alert->items())
    if (item.role == "label")
      texts.push_back(item.name);
  EXPECT_THAT(texts, ElementsAre("disk\\u{202E}gpj", "one\n[2Jtwo", "OK"));
}

TEST_F(HostileTextsTest, AreLinesOfTheLogWithoutADisplay) {
  ChildProcess plugin = launch("alert", {.environment = {{"DISPLAY", ""}}, .captureErrors = true});
  EXPECT_THAT(plugin.readAll(), HasSubstr("disk\\u{202E}gpj\none [2Jtwo\n"));
  EXPECT_EQ(plugin.wait(), 0);
}

}  // namespace
