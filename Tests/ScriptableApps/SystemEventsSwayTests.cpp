#include "Tests/ScriptableApps/SystemEventsOnWayland.h"

namespace {

TEST_F(SystemEventsOnWaylandTest, KnowsWhichApplicationIsInFront) {
  start("Native", {"one", "two"});
  start("Xwayland", {"three"}, WindowSystem::x11);
  const auto frontmost = [] {
    std::vector<std::string> names;
    for (const RunningApplication& process : openProcesses())
      if (process.isFrontmost)
        names.push_back(process.name);
    return names;
  };
  for (const char* title : {"one", "three", "two"}) {
    EXPECT_TRUE(compositor->focus(title));
    EXPECT_THAT(frontmost(), ElementsAre(title == std::string("three") ? "Xwayland" : "Native"));
  }
}

}  // namespace
