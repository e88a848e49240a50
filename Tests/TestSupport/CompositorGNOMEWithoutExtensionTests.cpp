#include <gmock/gmock.h>

#include "Tests/Support/Compositor.h"
#include "Tests/Support/ScreenReader.h"
#include "Tests/Support/WindowPrograms.h"

namespace {

using TestSupport::ScreenReader;
using TestSupport::startGTKWindows;

TEST(CompositorWithAccessibility, LetsAScreenReaderSeeWindows) {
  const auto compositor = TestSupport::Compositor::running();
  const ScreenReader reader;
  const auto program = startGTKWindows("com.example.A", {"1"});
  const auto window = reader.awaitWindow(program.pid());
  ASSERT_TRUE(window);
  EXPECT_EQ(window->item().name, "1");
  EXPECT_TRUE(compositor->awaitWindow("1"));
}

}  // namespace
