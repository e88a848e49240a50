#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Windows.h"

namespace Platform::Fake {

/// What has become of a window, for a test to look at for as long as it likes.
struct FakeWindowState {
  /// What it shows at the moment: the numbers and the selected options are the user's.
  WindowContent content;
  /// The level that was set last.
  int level = normalWindowLevel;
  /// Whether it has been shown and not been closed since.
  bool isVisible = false;
  /// How often it was shown or brought to the front.
  int timesOrderedFront = 0;
  /// The window; null once it is gone.
  Window* window = nullptr;

  /// Enters a number into the field with this label as a user would: what lies outside its bounds is taken to the
  /// nearer one, and a number that was there before changes nothing. False where the window has no such field or is
  /// gone.
  bool enter(std::string_view label, int number);

  /// Selects an option of the choice with this label as a user would. False where the window has no such choice or
  /// option or is gone.
  bool choose(std::string_view label, std::string_view option);
};

/// Makes windows that only note what is done to them.
class FakeWindows : public Windows {
 public:
  std::unique_ptr<Window> makeWindow(const WindowContent& content) override;

  /// The windows made so far.
  std::vector<std::shared_ptr<FakeWindowState>> made;
  /// Whether there is a display; without one, no windows are made.
  bool hasDisplay = true;
};

}  // namespace Platform::Fake
