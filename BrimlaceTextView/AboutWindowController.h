#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Platform/Text/URL.h"
#include "Platform/Windows.h"

namespace BrimlaceTextView {

/// The About window: the application's icon, name, version, licence and website, if the main bundle has them.
class AboutWindowController : public Platform::WindowController {
 public:
  /// Makes the controller and its window, which is not shown yet. With `shareMessage`, the window has a link that sends
  /// this message to somebody; with `moreAppsLink`, it has a link to the maker's other applications.
  static std::unique_ptr<AboutWindowController> createWithWindow(const std::optional<std::string>& shareMessage,
                                                                 const std::optional<Platform::URL>& moreAppsLink);

 private:
  explicit AboutWindowController(std::unique_ptr<Platform::Window> window);
};

}  // namespace BrimlaceTextView
