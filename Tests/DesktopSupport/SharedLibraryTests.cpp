#include <cmath>

#include <gtest/gtest.h>

#include "DesktopSupport/System/SharedLibrary.h"

namespace DesktopSupport {
namespace {

struct Functions {
  decltype(&sqrt) squareRoot;
  void (*other)();
};

TEST(SharedLibrary, YieldsItsFunctions) {
  SharedLibrary library("libm.so.6");
  Functions functions = {};
  library.find("sqrt", functions.squareRoot);
  const auto loaded = library.with(functions);
  ASSERT_TRUE(loaded) << loaded.error();
  EXPECT_EQ(loaded->squareRoot(9.0), 3.0);
}

TEST(SharedLibrary, SaysWhichLibraryIsMissing) {
  SharedLibrary library("libnobody-has-this.so.0");
  Functions functions = {.squareRoot = sqrt, .other = nullptr};
  library.find("sqrt", functions.squareRoot);
  EXPECT_EQ(functions.squareRoot, nullptr) << "even if the program has such a function";
  EXPECT_EQ(library.with(functions).error(), "libnobody-has-this.so.0 is not installed or cannot be loaded.");
}

TEST(SharedLibrary, SaysWhichFunctionItLacks) {
  SharedLibrary library("libm.so.6");
  Functions functions = {};
  library.find("nobody_has_this", functions.other);
  library.find("sqrt", functions.squareRoot);
  EXPECT_EQ(library.with(functions).error(), "libm.so.6 has no function nobody_has_this.");
}

}  // namespace
}  // namespace DesktopSupport
