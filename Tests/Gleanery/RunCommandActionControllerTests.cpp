#include <type_traits>

#include <gmock/gmock.h>

#include "Gleanery/Providers/ChromeResourceProvider.h"
#include "Gleanery/Providers/FinderResourceProvider.h"
#include "Gleanery/Providers/OpenAppsResourceProvider.h"
#include "Gleanery/Providers/SafariResourceProvider.h"
#include "Gleanery/RunCommandActionController.h"
#include "Platform/Fake/FakeServices.h"

using Gleanery::RunCommandActionController;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

static_assert(!std::is_copy_constructible_v<RunCommandActionController> &&
              !std::is_copy_assignable_v<RunCommandActionController>);

constexpr const char* emptyListCommand = "deskloom://gleanery/%5B%5D";

class RunCommandActionControllerTest : public testing::Test {
 protected:
  void run(const std::optional<std::string>& data) { RunCommandActionController().run(data); }

  Platform::Fake::FakeServices desktop;
};

TEST_F(RunCommandActionControllerTest, SendsWhatTheProviderFoundAndTerminates) {
  desktop.scripts.answerText("News\nhttp://h/\n");
  run("safari");
  EXPECT_THAT(desktop.workspace.opened,
              ElementsAre("deskloom://gleanery/%5B%7B%22type%22:%22website%22,%22name%22:%22News%22,%22url%22:%22http:"
                          "%5C/%5C/h%5C/%22%7D%5D"));
  EXPECT_EQ(desktop.application.terminations, 1);
}

TEST_F(RunCommandActionControllerTest, RunsExactlyTheProviderOfTheIdentifier) {
  for (const auto& [identifier, script] : {std::pair("apps", Gleanery::OpenAppsResourceProvider().script()),
                                           std::pair("finder", Gleanery::FinderResourceProvider().script()),
                                           std::pair("safari", Gleanery::SafariResourceProvider().script()),
                                           std::pair("chrome", Gleanery::ChromeResourceProvider().script())}) {
    desktop.scripts.sources.clear();
    run(identifier);
    EXPECT_THAT(desktop.scripts.sources, ElementsAre(script));
  }
}

TEST_F(RunCommandActionControllerTest, SendsAnEmptyListForAnIdentifierThatNobodyHas) {
  for (const auto* unknown : {"Apps", "Safari", "Finder", "Chrome", "", "firefox"}) {
    desktop.workspace.opened.clear();
    run(unknown);
    EXPECT_THAT(desktop.workspace.opened, ElementsAre(emptyListCommand)) << unknown;
  }
  EXPECT_THAT(desktop.scripts.sources, IsEmpty());
  EXPECT_THAT(desktop.alerts.shown, IsEmpty());
}

TEST_F(RunCommandActionControllerTest, SendsNothingWithoutAnIdentifierAndTerminates) {
  run(std::nullopt);
  EXPECT_THAT(desktop.workspace.opened, IsEmpty());
  EXPECT_THAT(desktop.scripts.sources, IsEmpty());
  EXPECT_EQ(desktop.application.terminations, 1);
}

TEST_F(RunCommandActionControllerTest, SendsAnEmptyListIfTheScriptFailsAndOnlyTheLogTells) {
  desktop.scripts.fail(-600, "Application isn't running.");
  run("finder");
  EXPECT_THAT(desktop.workspace.opened, ElementsAre(emptyListCommand));
  EXPECT_THAT(desktop.alerts.shown, IsEmpty());
  EXPECT_EQ(desktop.log.messages.size(), 1U);
  EXPECT_EQ(desktop.application.terminations, 1);
}

TEST_F(RunCommandActionControllerTest, SendsAnEmptyListIfEverythingIsRefused) {
  desktop.scripts.answerText("Settings\nchrome://settings/\nHistory\nhistory://\n");
  run("chrome");
  EXPECT_THAT(desktop.workspace.opened, ElementsAre(emptyListCommand));
}

TEST_F(RunCommandActionControllerTest, KeepsDuplicates) {
  desktop.scripts.answerText("a\nx:y\na\nx:y\n");
  run("chrome");
  const std::string item = "%7B%22type%22:%22website%22,%22name%22:%22a%22,%22url%22:%22x:y%22%7D";
  EXPECT_THAT(desktop.workspace.opened, ElementsAre("deskloom://gleanery/%5B" + item + "," + item + "%5D"));
}

TEST(RunCommandActionControllerDeathTest, StopsTheProcessWithoutASharedApplication) {
  Platform::Fake::FakeServices desktop;
  desktop.services.application = nullptr;
  EXPECT_DEATH(RunCommandActionController().run(std::nullopt), "Fatal error: ");
}

TEST(RunCommandActionControllerDeathTest, StopsTheProcessOverAnUnreadableAddressBeforeAnythingIsSent) {
  Platform::Fake::FakeServices desktop;
  desktop.scripts.answerText("a\nnot a URL\n");
  EXPECT_DEATH(RunCommandActionController().run("safari"),
               "Fatal error: Unexpectedly found no URL in a tab's address\\.");
}

}  // namespace
