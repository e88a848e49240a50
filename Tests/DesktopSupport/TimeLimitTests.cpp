#include <filesystem>
#include <future>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "DesktopSupport/System/TimeLimit.h"
#include "Tests/Support/DeadMount.h"
#include "Tests/Support/TemporaryFolder.h"

using DesktopSupport::foundWithin;
using DesktopSupport::resultWithin;

namespace {

using namespace std::chrono_literals;

/// Longer than anything here takes.
constexpr std::chrono::milliseconds plenty = 60s;

TEST(ResultWithin, IsWhatTheWorkYields) {
  EXPECT_EQ(resultWithin(plenty, [] { return 3; }), 3);
}

TEST(ResultWithin, IsNoneIfTheWorkTakesTooLong) {
  auto never = std::make_shared<std::promise<int>>();
  EXPECT_EQ(resultWithin(20ms, [never] { return never->get_future().get(); }), std::nullopt);
  never->set_value(3);
}

TEST(FoundWithin, IsWhatTheWorkYields) {
  EXPECT_EQ(foundWithin(plenty, [] { return std::string("text"); }), "text");
  EXPECT_EQ(foundWithin(plenty, [] { return std::string(); }), "");
  const std::string large(1 << 20, 'x');
  EXPECT_TRUE(foundWithin(plenty, [&large] { return large; }) == large);
}

TEST(FoundWithin, IsNoneIfTheWorkTakesTooLong) {
  EXPECT_EQ(foundWithin(20ms,
                        [] {
                          pause();
                          return std::string("text");
                        }),
            std::nullopt);
}

TEST(FoundWithin, IsNoneIfTheWorkFails) {
  EXPECT_EQ(foundWithin(plenty, []() -> std::string { _exit(1); }), std::nullopt);
}

TEST(FoundWithin, DoesNotWaitForAProcessThatWaitsForADeadMount) {
  const TestSupport::TemporaryFolder folder;
  const TestSupport::DeadMount mount(folder.path());
  EXPECT_EQ(foundWithin(20ms,
                        [&mount] {
                          std::error_code ignored;
                          const bool is = std::filesystem::is_directory(mount.path() / "documents", ignored);
                          return std::string(is ? "yes" : "no");
                        }),
            std::nullopt);
}

TEST(FoundWithin, HasNoneOfThisProcesssFiles) {
  const auto open = foundWithin(plenty, [] {
    std::string numbers;
    for (int file = 1; file < 1024; ++file)
      if (std::filesystem::exists("/proc/self/fd/" + std::to_string(file)))
        numbers += std::to_string(file) + ' ';
    return numbers;
  });
  EXPECT_EQ(open, "");
}

}  // namespace
