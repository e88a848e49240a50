#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Platform/Text/URL.h"
#include "Platform/Windows.h"

namespace BrimlaceTextView {

/// The window that says what the application is: its icon, name, version, licence and website, as far as the main
/// bundle tells them.
class AboutWindowController : public Platform::WindowController {
 public:
  /// The controller with its window, which is not shown yet. With a share message, the window has a link that
  /// recommends the application in these words; with a link, one to the maker's other applications.
  static std::unique_ptr<AboutWindowController> createWithWindow(const std::optional<std::string>& shareMessage,
                                                                 const std::optional<Platform::URL>& moreAppsLink);

 private:
  explicit AboutWindowController(std::unique_ptr<Platform::Window> window);
};

}  // namespace BrimlaceTextView
