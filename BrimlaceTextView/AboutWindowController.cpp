#include "BrimlaceTextView/AboutWindowController.h"

#include <utility>

#include "Platform/Services.h"
#include "Platform/Text/PercentEncoding.h"

namespace BrimlaceTextView {

namespace {

using Platform::formatted;
using Platform::URL;
using Platform::WindowContent;

/// A link that begins a mail with this message. Every desktop can share a text in this way.
std::optional<URL> mailWithMessage(const std::string& message) {
  std::string text = "mailto:?body=";
  for (const char character : Platform::percentEncodedPath(message))
    if (character == '&')
      text += "%26";
    else
      text += character;
  return URL::parse(text);
}

void addBundleInformation(WindowContent& content, const std::string& name) {
  const auto& [bundle, strings] = std::tie(Platform::services().bundle, Platform::services().strings);
  if (const auto icon = bundle.information("Icon"))
    content.elements.emplace_back(Platform::Picture{.file = bundle.path() / *icon, .description = name});
  content.elements.emplace_back(Platform::Heading{name});
  if (const auto version = bundle.information("Version"))
    content.elements.emplace_back(
        Platform::Text{formatted(strings.localized("Version %@", "Version of the application"), *version)});
  if (const auto license = bundle.information("License"))
    content.elements.emplace_back(
        Platform::Text{formatted(strings.localized("License: %@", "Licence of the application"), *license)});
  if (const auto website = URL::parse(bundle.information("Website").value_or("")))
    content.elements.emplace_back(
        Platform::Link{strings.localized("Website", "Link to the application's website"), *website});
}

WindowContent aboutContent(const std::optional<std::string>& shareMessage, const std::optional<URL>& moreAppsLink) {
  const auto& strings = Platform::services().strings;
  const std::string name = Platform::services().bundle.information("Name").value_or("");
  WindowContent content{
      .title =
          formatted(strings.localized("About %@", "Title of the window that tells what the application is"), name)};
  addBundleInformation(content, name);
  if (const auto mail = shareMessage.and_then(mailWithMessage))
    content.elements.emplace_back(
        Platform::Link{strings.localized("Share", "Link that recommends the application"), *mail});
  if (moreAppsLink)
    content.elements.emplace_back(
        Platform::Link{strings.localized("More apps", "Link to other applications of the maker"), *moreAppsLink});
  return content;
}

}  // namespace

std::unique_ptr<AboutWindowController> AboutWindowController::createWithWindow(
    const std::optional<std::string>& shareMessage, const std::optional<URL>& moreAppsLink) {
  auto window = Platform::services().windows.makeWindow(aboutContent(shareMessage, moreAppsLink));
  return std::unique_ptr<AboutWindowController>(new AboutWindowController(std::move(window)));
}

AboutWindowController::AboutWindowController(std::unique_ptr<Platform::Window> window)
    : WindowController(std::move(window)) {}

}  // namespace BrimlaceTextView
