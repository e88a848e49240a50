#include "UpdateCheck/AppcastBuilder.h"

#include <array>
#include <utility>

namespace UpdateCheck {

namespace {

using Property = std::optional<std::string> AppcastItem::*;

constexpr std::string_view versionName = "http://www.andymatuschak.org/xml-namespaces/sparkle version";
constexpr std::string_view shortVersionName = "http://www.andymatuschak.org/xml-namespaces/sparkle shortVersionString";
constexpr std::string_view signatureName = "http://www.andymatuschak.org/xml-namespaces/sparkle edSignature";
constexpr std::string_view systemName = "http://www.andymatuschak.org/xml-namespaces/sparkle os";

constexpr std::array<std::pair<std::string_view, Property>, 5> properties = {{
    {versionName, &AppcastItem::version},
    {shortVersionName, &AppcastItem::shortVersion},
    {"http://www.andymatuschak.org/xml-namespaces/sparkle minimumSystemVersion", &AppcastItem::minimumSystemVersion},
    {"http://www.andymatuschak.org/xml-namespaces/sparkle channel", &AppcastItem::channel},
    {"link", &AppcastItem::link},
}};

/// The text without the blanks around it; none where nothing remains, or too much.
std::optional<std::string> usable(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos || text.size() > AppcastBuilder::maximumText)
    return std::nullopt;
  return std::string(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

std::optional<std::string> valueOf(const XMLHandler::Attributes& attributes, std::string_view name) {
  const auto found = attributes.find(name);
  return found == attributes.end() ? std::nullopt : usable(found->second);
}

}  // namespace

bool AppcastBuilder::isInItem() const {
  return path_.size() == 3 && path_[0] == "rss" && path_[1] == "channel" && path_[2] == "item";
}

void AppcastBuilder::startElement(std::string_view name, const Attributes& attributes) {
  property_ = nullptr;
  if (isInItem())
    startProperty(name, attributes);
  path_.emplace_back(name);
  if (path_.size() == 2 && path_[0] == "rss" && path_[1] == "channel")
    hasChannel_ = true;
}

void AppcastBuilder::startProperty(std::string_view name, const Attributes& attributes) {
  if (name == "enclosure")
    takeEnclosure(attributes);
  for (const auto& [property, place] : properties)
    if (name == property)
      property_ = place;
  text_.clear();
}

void AppcastBuilder::takeEnclosure(const Attributes& attributes) {
  const auto url = valueOf(attributes, "url");
  if (!url || (item_.enclosure && item_.enclosure->isForThisSystem()))
    return;
  item_.enclosure = Enclosure{.url = *url,
                              .version = valueOf(attributes, versionName),
                              .shortVersion = valueOf(attributes, shortVersionName),
                              .signature = valueOf(attributes, signatureName),
                              .operatingSystem = valueOf(attributes, systemName)};
}

void AppcastBuilder::endElement() {
  if (property_ != nullptr)
    finishText();
  if (isInItem())
    finishItem();
  path_.pop_back();
}

void AppcastBuilder::appendText(std::string_view text) {
  if (property_ != nullptr && text_.size() <= maximumText)
    text_ += text;
}

void AppcastBuilder::finishText() {
  item_.*property_ = usable(text_);
  property_ = nullptr;
}

void AppcastBuilder::finishItem() {
  if (item_.enclosure && !item_.version)
    item_.version = item_.enclosure->version;
  if (item_.enclosure && !item_.shortVersion)
    item_.shortVersion = item_.enclosure->shortVersion;
  items_.push_back(std::exchange(item_, {}));
}

}  // namespace UpdateCheck
