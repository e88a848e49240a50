#include <gtest/gtest.h>

#include "Platform/AppleEvents.h"

using Platform::AppleEvent;
using Platform::AppleEventManager;

TEST(AppleEvent, NamesItsCodesByFourCharacters) {
  EXPECT_EQ(Platform::keyDirectObject, 757935405U);
  EXPECT_EQ(Platform::getURLEventID, 0x4755524CU);
}

TEST(AppleEvent, CarriesTheLaunchURLAsItsDirectObject) {
  const AppleEvent event = AppleEvent::getURL("not even a URL");
  ASSERT_NE(event.paramDescriptor(Platform::keyDirectObject), nullptr);
  EXPECT_EQ(event.paramDescriptor(Platform::keyDirectObject)->stringValue, "not even a URL");
  EXPECT_EQ(event.paramDescriptor(Platform::fourCharCode("othr")), nullptr);
}

TEST(AppleEventManager, CallsTheHandlerOfTheEventsKind) {
  AppleEventManager manager;
  int calls = 0;
  manager.setEventHandler(Platform::internetEventClass, Platform::getURLEventID,
                          [&](const AppleEvent& event, AppleEvent&) {
                            EXPECT_EQ(event.paramDescriptor(Platform::keyDirectObject)->stringValue, "x:y");
                            ++calls;
                          });
  manager.dispatch(AppleEvent::getURL("x:y"));
  manager.dispatch(AppleEvent(Platform::internetEventClass, Platform::fourCharCode("oapp")));
  EXPECT_EQ(calls, 1);
}

TEST(AppleEventManager, ReplacesAnEarlierHandler) {
  AppleEventManager manager;
  int calls = 0;
  manager.setEventHandler(Platform::internetEventClass, Platform::getURLEventID,
                          [](const AppleEvent&, AppleEvent&) { FAIL(); });
  manager.setEventHandler(Platform::internetEventClass, Platform::getURLEventID,
                          [&](const AppleEvent&, AppleEvent&) { ++calls; });
  manager.dispatch(AppleEvent::getURL(""));
  EXPECT_EQ(calls, 1);
}
