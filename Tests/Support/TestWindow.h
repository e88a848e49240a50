#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include <xcb/xcb.h>

#include "Tests/Support/TestDesktop.h"

namespace TestSupport {

/// A window of the test, with the properties that the test sets. The destructor closes it and waits until the window
/// manager no longer lists it.
class TestWindow {
 public:
  explicit TestWindow(const TestDesktop& desktop) : desktop_(desktop), id_(desktop.makeWindow()) {}
  TestWindow(const TestWindow&) = delete;
  TestWindow& operator=(const TestWindow&) = delete;
  ~TestWindow();

  [[nodiscard]] xcb_window_t id() const { return id_; }

  /// WM_CLASS as toolkits write it.
  TestWindow& setClass(std::string_view instance, std::string_view windowClass);
  TestWindow& setText(std::string_view property, std::string_view bytes, std::string_view type = "STRING");
  TestWindow& setNumber(std::string_view property, std::uint32_t number, std::string_view type = "CARDINAL");
  TestWindow& setAtom(std::string_view property, std::string_view atom);

  /// Shows the window and waits until the window manager lists it. Returns false if it takes too long.
  [[nodiscard]] bool show();

  /// Minimises the window and waits until the window manager has done so. Returns false if it takes too long.
  [[nodiscard]] bool minimize();

 private:
  [[nodiscard]] bool isListed() const;

  const TestDesktop& desktop_;
  xcb_window_t id_;
};

}  // namespace TestSupport
