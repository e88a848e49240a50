#include "Tests/ScriptableApps/SystemEventsOnWayland.h"

namespace {

TEST_F(SystemEventsOnWaylandTest, KnowsWhichApplicationIsInFront) {
  expectThatTheFrontIsKnown();
}

TEST_F(SystemEventsOnWaylandTest, ListsX11ProgramsAloneIfATitleIsTooLongForTheProtocol) {
  start("Native", {"native"});
  start("Xwayland", {std::string(100'000, 'x')}, WindowSystem::x11);
  testing::internal::CaptureStderr();
  EXPECT_THAT(namesOfOpenProcesses(), ElementsAre("Xwayland"));
  EXPECT_THAT(testing::internal::GetCapturedStderr(),
              testing::HasSubstr("The compositor has broken off the connection."));
}

}  // namespace
