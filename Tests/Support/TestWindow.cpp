#include "Tests/Support/TestWindow.h"

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

namespace TestSupport {

TestWindow::~TestWindow() {
  xcb_destroy_window(desktop_.connection(), id_);
  desktop_.synchronize();
  EXPECT_TRUE(desktop_.waitUntil([this] { return !isListed(); }));
}

TestWindow& TestWindow::setClass(std::string_view instance, std::string_view windowClass) {
  return setText("WM_CLASS", std::string(instance) + '\0' + std::string(windowClass) + '\0');
}

TestWindow& TestWindow::setText(std::string_view property, std::string_view bytes, std::string_view type) {
  desktop_.setText(id_, property, bytes, type);
  return *this;
}

TestWindow& TestWindow::setNumber(std::string_view property, std::uint32_t number, std::string_view type) {
  desktop_.setNumbers(id_, property, {number}, type);
  return *this;
}

TestWindow& TestWindow::setAtom(std::string_view property, std::string_view atom) {
  return setNumber(property, desktop_.atom(atom), "ATOM");
}

bool TestWindow::show() {
  xcb_map_window(desktop_.connection(), id_);
  return desktop_.waitUntil([this] { return isListed(); });
}

bool TestWindow::minimize() {
  constexpr std::uint32_t iconicState = 3;
  desktop_.askWindowManager(id_, "WM_CHANGE_STATE", iconicState);
  return desktop_.waitUntil([this] {
    const auto states = desktop_.numbers(id_, "_NET_WM_STATE");
    return std::ranges::find(states, desktop_.atom("_NET_WM_STATE_HIDDEN")) != states.end();
  });
}

bool TestWindow::isListed() const {
  const auto clients = desktop_.clients();
  return std::ranges::find(clients, id_) != clients.end();
}

}  // namespace TestSupport
