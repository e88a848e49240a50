#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "Platform/Lifetime.h"

using Platform::Lifetime;

namespace {

TEST(LifetimeTest, PassesTheArgumentsOnWhileTheObjectLives) {
  const Lifetime lifetime;
  std::string text;
  const std::function<void(const std::string&, int&)> callback =
      lifetime.guarded([&text](const std::string& first, int& second) {
        text = first;
        ++second;
      });
  int number = 1;
  callback("a", number);
  EXPECT_EQ(text, "a");
  EXPECT_EQ(number, 2);
}

TEST(LifetimeTest, ACallbackDoesNothingOnceTheObjectIsGone) {
  std::optional<Lifetime> lifetime(std::in_place);
  int calls = 0;
  const auto callback = lifetime->guarded([&calls] { ++calls; });
  callback();
  lifetime.reset();
  callback();
  EXPECT_EQ(calls, 1);
}

TEST(LifetimeTest, ACallbackMayEndItsOwnObject) {
  auto lifetime = std::make_unique<Lifetime>();
  int calls = 0;
  const std::function<void()> callback = lifetime->guarded([&] {
    lifetime.reset();
    ++calls;
  });
  callback();
  callback();
  EXPECT_EQ(calls, 1);
}

TEST(LifetimeTest, IsNotCopiedWithItsObject) {
  EXPECT_FALSE(std::is_copy_constructible_v<Lifetime>);
  EXPECT_FALSE(std::is_copy_assignable_v<Lifetime>);
}

}  // namespace
