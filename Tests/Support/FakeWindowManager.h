#pragma once

#include <vector>

#include "Tests/Support/TestDesktop.h"

namespace TestSupport {

/// Says on the root window what a window manager says there, and manages nothing. For a server that has no other.
class FakeWindowManager {
 public:
  /// Vouches for itself; lists no windows yet.
  explicit FakeWindowManager(const TestDesktop& desktop);
  ~FakeWindowManager();
  FakeWindowManager(const FakeWindowManager&) = delete;
  FakeWindowManager& operator=(const FakeWindowManager&) = delete;

  void list(const std::vector<xcb_window_t>& windows) const;
  void activate(xcb_window_t window) const;

  /// Goes as one that crashes does: what it said on the root window stays.
  void crash();

 private:
  const TestDesktop& desktop_;
  xcb_window_t check_;
};

}  // namespace TestSupport
