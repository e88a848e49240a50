#include <cerrno>
#include <csignal>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/ChildProcess.h"

namespace {

using namespace std::chrono_literals;
using TestSupport::ChildProcess;
using TestSupport::run;

const ChildProcess::Options withHelpers = {.hasHelpers = true};

bool exists(pid_t process) {
  return kill(process, 0) == 0 || errno != ESRCH;
}

/// Starts two helpers that are hard to find: they ignore signals, have their own sessions and no environment, and the
/// second is left running by the first. They print their process ids and keep running.
constexpr std::string_view startHelpers = R"(
  stay='trap "" TERM HUP; echo $$; exec >/dev/null sleep 4711'
  setsid env -i "stay=$stay" sh -c 'trap "" TERM HUP; (setsid sh -c "$stay" &); eval "$stay"' &
)";

/// Waits until both helpers run, and returns their process ids.
std::vector<pid_t> awaitHelpers(ChildProcess& program) {
  std::vector<pid_t> helpers;
  for (int count = 0; count < 2; ++count)
    helpers.push_back(std::stoi(program.readLine().value()));
  return helpers;
}

TEST(ChildProcess, YieldsTheExitStatus) {
  for (const bool hasHelpers : {false, true}) {
    EXPECT_EQ(run({"sh", "-c", "exit 7"}, {.hasHelpers = hasHelpers}), 7);
    EXPECT_EQ(run({"sh", "-c", "kill -KILL $$"}, {.hasHelpers = hasHelpers}), 128 + SIGKILL);
    EXPECT_EQ(run({"sh", "-c", "kill -TERM $$; exit 7"}, {.hasHelpers = hasHelpers}), 128 + SIGTERM);
    EXPECT_EQ(run({"/nonexistent"}, {.hasHelpers = hasHelpers}), 127);
  }
}

TEST(ChildProcess, IsTheProgramItself) {
  for (const bool hasHelpers : {false, true}) {
    ChildProcess program({"sh", "-c", "echo $$"}, {.hasHelpers = hasHelpers});
    EXPECT_EQ(program.readLine(), std::to_string(program.pid()));
    EXPECT_EQ(program.readAll(), "");
    EXPECT_EQ(program.wait(), 0);
  }
}

TEST(ChildProcess, SaysNothingMoreWhenItHasClosedItsOutput) {
  for (const bool hasHelpers : {false, true}) {
    ChildProcess program({"sh", "-c", "echo all; exec sleep 4711 >/dev/null"}, {.hasHelpers = hasHelpers});
    EXPECT_EQ(program.readAll(), "all\n");
  }
}

/// The error that the operation throws.
std::string failure(const std::function<void()>& operation) {
  try {
    operation();
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "none";
}

TEST(ChildProcess, IsNotWaitedForWithoutEnd) {
  for (const bool hasHelpers : {false, true}) {
    ChildProcess program({"sh", "-c", R"(printf 'first\nsec'; exec sleep 4711)"}, {.hasHelpers = hasHelpers});
    EXPECT_EQ(program.readLine(), "first");
    EXPECT_EQ(failure([&] { program.readLine(1ms); }),
              "sh: waited too long for line 2; output so far:\n  first\n  sec");
    EXPECT_EQ(failure([&] { program.readAll(1ms); }),
              "sh: waited too long for the end of the output; output so far:\n  first\n  sec");
    EXPECT_EQ(failure([&] { program.wait(1ms); }), "sh: waited too long for its end; output so far:\n  first\n  sec");
    EXPECT_TRUE(exists(program.pid()));
  }
}

TEST(ChildProcess, BelongsToWhomItIsMovedTo) {
  for (const bool hasHelpers : {false, true}) {
    std::optional<ChildProcess> program(std::in_place, std::vector<std::string>{"sleep", "4711"},
                                        ChildProcess::Options{.hasHelpers = hasHelpers});
    const ChildProcess moved = std::move(*program);
    program.reset();
    EXPECT_TRUE(exists(moved.pid()));
  }
}

TEST(ChildProcess, HasEndedWhenItsHelpersHave) {
  ChildProcess program({"sh", "-c", std::string(startHelpers) + "exec sleep 4711"}, withHelpers);
  const std::vector<pid_t> helpers = awaitHelpers(program);
  kill(program.pid(), SIGKILL);
  EXPECT_EQ(program.wait(), 128 + SIGKILL);
  for (const pid_t helper : helpers)
    EXPECT_FALSE(exists(helper));
}

TEST(ChildProcess, TakesItsHelpersWithIt) {
  std::vector<pid_t> helpers;
  {
    ChildProcess program({"sh", "-c", std::string(startHelpers) + "exec sleep 4711"}, withHelpers);
    helpers = awaitHelpers(program);
    helpers.push_back(program.pid());
  }
  for (const pid_t helper : helpers)
    EXPECT_FALSE(exists(helper));
}

TEST(ChildProcess, LeavesTheHelpersOfOthersAlone) {
  ChildProcess other({"sh", "-c", std::string(startHelpers) + "exec sleep 4711"}, withHelpers);
  const std::vector<pid_t> helpers = awaitHelpers(other);
  EXPECT_EQ(run({"sh", "-c", "setsid sleep 4711 & exit 7"}, withHelpers), 7);
  for (const pid_t helper : helpers)
    EXPECT_TRUE(exists(helper));
}

}  // namespace
