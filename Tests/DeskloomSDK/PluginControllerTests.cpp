#include <csignal>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include "DeskloomSDK/PluginController.h"

using DeskloomSDK::PluginController;
using Platform::AppleEvent;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class PluginControllerTest : public testing::Test {
 protected:
  PluginControllerTest() {
    controller.onRun = [this](const std::string& id) { calls.push_back("run " + id); };
    controller.onEdit = [this](const std::string& id) { calls.push_back("edit " + id); };
    controller.onConfigure = [this] { calls.emplace_back("configure"); };
    controller.onRunCommand = [this](const std::optional<std::string>& id) {
      calls.push_back("runCommand " + id.value_or("(none)"));
    };
  }

  bool open(std::string text) { return controller.handleURLEvent(AppleEvent::getURL(std::move(text))); }

  PluginController controller;
  std::vector<std::string> calls;
};

TEST_F(PluginControllerTest, CallsTheHandlerOfTheAction) {
  EXPECT_TRUE(open("deskloomplugin://run/A"));
  EXPECT_TRUE(open("deskloomplugin://edit/B"));
  EXPECT_TRUE(open("deskloomplugin://configure"));
  EXPECT_TRUE(open("deskloomplugin://runCommand/safari"));
  EXPECT_THAT(calls, ElementsAre("run A", "edit B", "configure", "runCommand safari"));
}

TEST_F(PluginControllerTest, IgnoresTheIdentifierOfConfigure) {
  EXPECT_TRUE(open("deskloomplugin://configure/ABC"));
  EXPECT_THAT(calls, ElementsAre("configure"));
}

TEST_F(PluginControllerTest, RunsACommandWithoutAnIdentifier) {
  EXPECT_TRUE(open("deskloomplugin://runCommand"));
  EXPECT_TRUE(open("deskloomplugin://runCommand/a/b"));
  EXPECT_THAT(calls, ElementsAre("runCommand (none)", "runCommand (none)"));
}

TEST_F(PluginControllerTest, RemembersThatAnActionWasPerformed) {
  EXPECT_FALSE(controller.didPerformAction);
  open("deskloomplugin://runCommand/X");
  EXPECT_TRUE(controller.didPerformAction);
}

TEST_F(PluginControllerTest, RemembersItOnlyOnceTheHandlerHasReturned) {
  const auto look = [this] { calls.emplace_back(controller.didPerformAction ? "too early" : "not yet"); };
  controller.onRun = [look](const std::string&) { look(); };
  controller.onEdit = [look](const std::string&) { look(); };
  controller.onConfigure = look;
  controller.onRunCommand = [look](const std::optional<std::string>&) { look(); };
  for (const auto* text : {"deskloomplugin://run/A", "deskloomplugin://edit/A", "deskloomplugin://configure",
                           "deskloomplugin://runCommand/A"}) {
    calls.clear();
    controller.didPerformAction = false;
    EXPECT_TRUE(open(text));
    EXPECT_THAT(calls, ElementsAre("not yet")) << text;
    EXPECT_TRUE(controller.didPerformAction) << text;
  }
}

TEST_F(PluginControllerTest, AHandlerMayReplaceItselfAndLivesUntilItHasReturned) {
  auto alive = std::make_shared<std::string>("first");
  const std::weak_ptr<std::string> watched = alive;
  controller.onRun = [&controller = controller, &calls = calls, watched, alive = std::move(alive)](const std::string&) {
    // Everything used after the replacement is on the stack, since the lambda may be gone by then.
    auto& noted = calls;
    const auto stillWatched = watched;
    controller.onRun = [&noted](const std::string& id) { noted.push_back("second " + id); };
    noted.emplace_back(stillWatched.expired() ? "released too early" : "first");
  };
  EXPECT_TRUE(open("deskloomplugin://run/A"));
  EXPECT_TRUE(watched.expired()) << "the old handler is released once it has returned";
  EXPECT_TRUE(open("deskloomplugin://run/B"));
  EXPECT_THAT(calls, ElementsAre("first", "second B"));
}

TEST_F(PluginControllerTest, AHandlerMayReplaceItsController) {
  auto alive = std::make_shared<int>();
  const std::weak_ptr<int> watched = alive;
  controller.onEdit = [&controller = controller, &calls = calls, watched,
                       alive = std::move(alive)](const std::string&) {
    auto& noted = calls;
    const auto stillWatched = watched;
    PluginController next;
    next.onEdit = [&noted](const std::string& id) { noted.push_back("next " + id); };
    controller = std::move(next);
    noted.emplace_back(stillWatched.expired() ? "released too early" : "first");
    EXPECT_FALSE(controller.didPerformAction);
  };
  EXPECT_TRUE(open("deskloomplugin://edit/A"));
  EXPECT_TRUE(controller.didPerformAction) << "the action counts for the controller that is there now";
  EXPECT_TRUE(watched.expired());
  EXPECT_TRUE(open("deskloomplugin://edit/B"));
  EXPECT_THAT(calls, ElementsAre("first", "next B"));
}

TEST_F(PluginControllerTest, AHandlerKeepsItsStateFromCallToCall) {
  controller.onRun = [this, count = 0](const std::string&) mutable { calls.push_back(std::to_string(++count)); };
  open("deskloomplugin://run/A");
  open("deskloomplugin://run/A");
  EXPECT_THAT(calls, ElementsAre("1", "2"));
}

TEST_F(PluginControllerTest, AHandlerMayBeCalledTakenAndWrapped) {
  controller.onRun = [this, inner = controller.onRun](const std::string& id) {
    inner("inner " + id);
    calls.emplace_back("outer");
  };
  controller.onRun("A");
  controller.onEdit = controller.onRun;
  open("deskloomplugin://edit/B");
  EXPECT_THAT(calls, ElementsAre("run inner A", "outer", "run inner B", "outer"));
}

TEST_F(PluginControllerTest, IsMovedWithItsHandlersAndWhetherAnActionWasPerformed) {
  open("deskloomplugin://configure");
  PluginController moved(std::move(controller));
  EXPECT_TRUE(moved.didPerformAction);
  PluginController assigned;
  assigned = std::move(moved);
  EXPECT_TRUE(assigned.didPerformAction);
  EXPECT_TRUE(assigned.handleURLEvent(AppleEvent::getURL("deskloomplugin://run/A")));
  EXPECT_THAT(calls, ElementsAre("configure", "run A"));
}

TEST_F(PluginControllerTest, CannotBeCopied) {
  EXPECT_FALSE(std::is_copy_constructible_v<PluginController>);
  EXPECT_FALSE(std::is_copy_assignable_v<PluginController>);
}

TEST_F(PluginControllerTest, ForgetsItIfRunOrEditComesWithoutAnIdentifier) {
  for (const auto* text : {"deskloomplugin://run", "deskloomplugin://edit", "deskloomplugin://run/a/b"}) {
    controller.didPerformAction = true;
    EXPECT_FALSE(open(text));
    EXPECT_FALSE(controller.didPerformAction);
  }
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(PluginControllerTest, LeavesUnknownActionsAlone) {
  for (const bool before : {false, true}) {
    controller.didPerformAction = before;
    for (const auto* text : {"deskloomplugin://Run/X", "deskloomplugin://runcommand/X", "deskloomplugin://delete/X"})
      EXPECT_FALSE(open(text));
    EXPECT_EQ(controller.didPerformAction, before);
  }
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(PluginControllerTest, IgnoresWhatIsNoLaunchURL) {
  for (const std::string& text : {std::string(), std::string("deskloomplugin://run/a b"), std::string("other://run/X"),
                                  std::string("run"), std::string("\xFF\xFE"), std::string("deskloomplugin:run"),
                                  std::string(1 << 20, 'a'), std::string(1 << 20, '%')})
    EXPECT_FALSE(open(text));
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(PluginControllerTest, TakesAnIdentifierOfAMegabyte) {
  const std::string identifier(1 << 20, 'a');
  EXPECT_TRUE(open("deskloomplugin://run/" + identifier));
  EXPECT_THAT(calls, ElementsAre("run " + identifier));
}

TEST_F(PluginControllerTest, IgnoresAnEventWithoutADirectObjectOrWithoutText) {
  AppleEvent event(Platform::internetEventClass, Platform::getURLEventID);
  EXPECT_FALSE(controller.handleURLEvent(event));
  event.setParamDescriptor(Platform::keyDirectObject, {std::nullopt});
  EXPECT_FALSE(controller.handleURLEvent(event));
}

TEST(PluginControllerDeathTest, StopsTheProcessOverAHandlerThatIsNotSet) {
  PluginController controller;
  const auto open = [&](const char* text) { controller.handleURLEvent(AppleEvent::getURL(text)); };
  EXPECT_DEATH(open("deskloomplugin://run/A"),
               "^Fatal error: Run action not implemented yet\\.: file PluginController\\.cpp, line [0-9]+\n$");
  EXPECT_DEATH(open("deskloomplugin://edit/A"),
               "^Fatal error: Edit action not implemented yet\\.: file PluginController\\.cpp, line [0-9]+\n$");
  EXPECT_DEATH(open("deskloomplugin://configure"),
               "^Fatal error: Edit Global Configuration action not implemented yet\\.: file PluginController\\.cpp, "
               "line [0-9]+\n$");
  EXPECT_DEATH(open("deskloomplugin://runCommand"),
               "^Fatal error: Edit Global Configuration action not implemented yet\\.: file PluginController\\.cpp, "
               "line [0-9]+\n$");
}

/// What a process that a launch URL stops writes to standard error.
std::string lastWords(PluginController& controller, const char* text) {
  testing::internal::CaptureStderr();
  const pid_t child = fork();
  if (child == 0) {
    controller.handleURLEvent(AppleEvent::getURL(text));
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT) << text;
  return testing::internal::GetCapturedStderr();
}

TEST(PluginControllerDeathTest, StopsTheProcessOverAnEmptyHandlerAsOverOneThatIsNotSet) {
  PluginController unset;
  PluginController emptied;
  emptied.onRun = nullptr;
  emptied.onEdit = PluginController::ActionHandler::Callback();
  emptied.onConfigure = nullptr;
  emptied.onRunCommand = std::function<void(const std::optional<std::string>&)>();
  for (const auto* text : {"deskloomplugin://run/A", "deskloomplugin://edit/A", "deskloomplugin://configure",
                           "deskloomplugin://runCommand"}) {
    const std::string expected = lastWords(unset, text);
    EXPECT_THAT(expected, testing::StartsWith("Fatal error: ")) << text;
    EXPECT_EQ(lastWords(emptied, text), expected) << "to the line";
  }
}

TEST(PluginControllerDeathTest, TakingTheHandlerOfAnotherActionThatIsNotSetChangesNoMessage) {
  PluginController controller;
  controller.onEdit = controller.onRun;
  EXPECT_DEATH(controller.handleURLEvent(AppleEvent::getURL("deskloomplugin://edit/A")),
               "Edit action not implemented yet");
}

}  // namespace
