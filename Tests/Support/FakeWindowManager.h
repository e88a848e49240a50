#pragma once

#include <vector>

#include "Tests/Support/TestDesktop.h"

namespace TestSupport {

/// Sets the properties that a window manager sets on the root window, and does nothing else. For a server without one.
class FakeWindowManager {
 public:
  /// Identifies itself as the window manager, and lists no windows.
  explicit FakeWindowManager(const TestDesktop& desktop);
  ~FakeWindowManager();
  FakeWindowManager(const FakeWindowManager&) = delete;
  FakeWindowManager& operator=(const FakeWindowManager&) = delete;

  void list(const std::vector<xcb_window_t>& windows) const;
  void activate(xcb_window_t window) const;

  /// Ends as if it crashed: the properties of the root window stay.
  void crash();

 private:
  const TestDesktop& desktop_;
  xcb_window_t check_;
};

}  // namespace TestSupport
