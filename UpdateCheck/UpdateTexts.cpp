#include "UpdateCheck/UpdateTexts.h"

#include "DesktopSupport/System/DisplayableText.h"

namespace UpdateCheck {

std::string UpdateTexts::summary(std::string_view name) const {
  return Platform::formatted(
      strings_.localized("An update for %@ is available", "Title of a notification; %@ is the plug-in's name"),
      DesktopSupport::printable(name));
}

std::string UpdateTexts::body(std::string_view version) const {
  return Platform::formatted(
      strings_.localized("Version %@ can be downloaded.", "Text of a notification; %@ is the new version"),
      DesktopSupport::printable(version));
}

std::string UpdateTexts::button() const {
  return strings_.localized("Learn More", "Button of a notification; opens the web page about the update");
}

}  // namespace UpdateCheck
