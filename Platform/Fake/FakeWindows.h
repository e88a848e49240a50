#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Platform/Windows.h"

namespace Platform::Fake {

/// What has become of a window, for a test to look at for as long as it likes.
struct FakeWindowState {
  WindowContent content;
  int level = normalWindowLevel;
  bool isVisible = false;
  /// How often it was shown or brought to the front.
  int timesOrderedFront = 0;
  /// The window; null once it is gone.
  Window* window = nullptr;
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
