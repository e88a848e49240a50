#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Windows.h"

namespace Platform::Fake {

/// The state of a window. A test may look at it even after the window is gone.
struct FakeWindowState {
  /// What it shows now: its numbers and selected options are the user's.
  WindowContent content;
  /// The level that was set last.
  int level = normalWindowLevel;
  /// Whether it was shown and has not been closed since.
  bool isVisible = false;
  /// How often it was shown or brought to the front.
  int timesOrderedFront = 0;
  /// The window; null after it is gone.
  Window* window = nullptr;

  /// Enters a number into the field with this label as a user would. A number outside its bounds becomes the nearer
  /// bound, and the number that was there before changes nothing. False if the window has no such field or is gone.
  bool enter(std::string_view label, int number);

  /// Selects an option of the choice with this label as a user would. False if the window has no such choice or option
  /// or is gone.
  bool choose(std::string_view label, std::string_view option);
};

/// Makes windows that only record what is done to them.
class FakeWindows : public Windows {
 public:
  std::unique_ptr<Window> makeWindow(const WindowContent& content) override;

  /// The windows made so far.
  std::vector<std::shared_ptr<FakeWindowState>> made;
  /// Whether there is a display. Without one, no window is made.
  bool hasDisplay = true;
};

}  // namespace Platform::Fake
