#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/AppleScript/TestApplications.h"

// What a script costs is counted here, not timed: in bytes allocated, and in questions to the application's objects.

namespace {

std::size_t allocatedBytes = 0;

}  // namespace

void* operator new(std::size_t size) {
  allocatedBytes += size;
  if (void* memory = std::malloc(size))
    return memory;
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}

namespace AppleScript::Testing {
namespace {

// The larger is the smaller times a power of two, so that what grows by doubling is as full at both.
constexpr int few = 1 << 10;
constexpr int many = 1 << 16;

std::shared_ptr<const TestRoot> manyThings(int count) {
  auto root = std::make_shared<TestRoot>();
  std::vector<TestTab> tabs;
  for (int i = 0; i < count; ++i) {
    root->processes.emplace_back("process with a long enough name", i % 2 == 0, "/usr/bin/program");
    tabs.emplace_back("a tab's title", "https://site.example/page");
  }
  root->windows.emplace_back("one", 1, "/", std::move(tabs));
  return root;
}

/// The bytes that running `source` allocates for each of `count` items.
double bytesPerItem(const std::string& source, int count) {
  TestApplications applications(manyThings(count));
  std::string text = "set n to " + std::to_string(count) + "\n" + source;
  const auto script = Script::compile(text, applications);
  EXPECT_TRUE(script) << script.error().message;
  const std::size_t before = allocatedBytes;
  const auto result = script->run();
  EXPECT_TRUE(result) << result.error().message;
  return static_cast<double>(allocatedBytes - before) / count;
}

class Growth : public testing::TestWithParam<const char*> {};

TEST_P(Growth, CostsTheSamePerItemHoweverMany) {
  EXPECT_LE(bytesPerItem(GetParam(), many), 1.2 * bytesPerItem(GetParam(), few));
}

INSTANTIATE_TEST_SUITE_P(
    Scripts, Growth,
    testing::Values(
        "set result to \"\"\nrepeat n times\n"
        "set result to ((result & \"name\" & linefeed as string) & \"path\" & linefeed as string)\nend repeat",

        "set result to \"\"\nrepeat n div 16 times\nset subres to result\nrepeat 16 times\n"
        "set subres to ((subres & \"name\" & linefeed as string) & \"path\" & linefeed as string)\nend repeat\n"
        "set result to subres\nend repeat",

        "set l to {}\nrepeat with i from 1 to n\nset end of l to i\nend repeat\n"
        "set sum to 0\nrepeat with i from 1 to n\nset sum to sum + (item i of l)\nend repeat\n"
        "repeat with x in l\nset sum to sum + x\nend repeat",

        "set l to {}\nrepeat n times\nset end of l to {name:\"a\", size:1}\nend repeat",

        "set t to \"\"\nrepeat n times\nset t to t & \"ü\"\nif length of t < 0 then return\nend repeat\n"
        "repeat with i from 1 to n\ncharacter i of t\nend repeat",

        "set t to \"\"\nrepeat n times\nset t to t & \"word\" & linefeed\nend repeat\n"
        "repeat with i from 1 to n\nparagraph i of t\nend repeat",

        "set result to \"\"\ntell application \"Test Desk\"\nrepeat with p in (get properties of every process)\n"
        "set result to result & name of p & POSIX path of file of p\nend repeat\nend tell",

        "set result to \"\"\ntell application \"Test Desk\"\nrepeat with y from 1 to number of tabs of window 1\n"
        "set result to result & URL of tab y of window 1\nend repeat\nend tell",

        "tell application \"Test Desk\" to name of every process whose background only is false"));

/// The questions that running `source` puts to an application that has `count` processes and tabs.
std::size_t questions(const std::string& source, int count) {
  TestApplications applications(manyThings(count));
  const auto script = Script::compile(source, applications);
  const std::size_t before = Tables::questions;
  EXPECT_TRUE(script && script->run());
  return Tables::questions - before;
}

TEST(Questions, AFilterIsOnePass) {
  const char* source = "tell application \"Test Desk\" to get number of (every process whose background only)";
  EXPECT_EQ(questions(source, 2000) - questions(source, 1000), 2000U) << "each process is fetched and asked once";
}

TEST(Questions, APropertyOfEveryOneIsOnePass) {
  const char* source = "tell application \"Test Desk\" to get name of every process";
  EXPECT_EQ(questions(source, 2000) - questions(source, 1000), 2000U);
}

TEST(Questions, CountingLooksAtNothing) {
  const char* source = "tell application \"Test Desk\" to get number of tabs of window 1";
  EXPECT_EQ(questions(source, 2000), questions(source, 10));
}

TEST(Questions, ATabByNumberIsFoundAtOnce) {
  const char* source = "tell application \"Test Desk\" to get URL of tab -1 of window 1";
  EXPECT_EQ(questions(source, 2000), questions(source, 10));
}

TEST(Questions, PropertiesAreAskedForWhenTheyAreNeeded) {
  const char* source = "tell application \"Test Desk\" to get properties of every process";
  EXPECT_EQ(questions(source, 2000) - questions(source, 1000), 1000U) << "each process is fetched, none is asked";
}

}  // namespace
}  // namespace AppleScript::Testing
