#include "Tests/Support/FakeWindowManager.h"

namespace TestSupport {

namespace {

constexpr std::string_view checkProperty = "_NET_SUPPORTING_WM_CHECK";
constexpr std::string_view listProperty = "_NET_CLIENT_LIST";
constexpr std::string_view activeProperty = "_NET_ACTIVE_WINDOW";

}  // namespace

FakeWindowManager::FakeWindowManager(const TestDesktop& desktop) : desktop_(desktop), check_(desktop.makeWindow()) {
  for (const xcb_window_t window : {desktop_.root(), check_})
    desktop_.setNumbers(window, checkProperty, {check_}, "WINDOW");
  desktop_.synchronize();
}

FakeWindowManager::~FakeWindowManager() {
  crash();
  for (const std::string_view property : {checkProperty, listProperty, activeProperty})
    xcb_delete_property(desktop_.connection(), desktop_.root(), desktop_.atom(property));
  desktop_.synchronize();
}

void FakeWindowManager::list(const std::vector<xcb_window_t>& windows) const {
  desktop_.setNumbers(desktop_.root(), listProperty, windows, "WINDOW");
  desktop_.synchronize();
}

void FakeWindowManager::activate(xcb_window_t window) const {
  desktop_.setNumbers(desktop_.root(), activeProperty, {window}, "WINDOW");
  desktop_.synchronize();
}

void FakeWindowManager::crash() {
  if (check_ != XCB_NONE)
    xcb_destroy_window(desktop_.connection(), check_);
  check_ = XCB_NONE;
  desktop_.synchronize();
}

}  // namespace TestSupport
