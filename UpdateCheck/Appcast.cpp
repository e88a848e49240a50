#include "UpdateCheck/Appcast.h"

#include <array>

#include "DesktopSupport/System/DisplayableText.h"
#include "UpdateCheck/Version.h"
#include "UpdateCheck/XMLReader.h"

namespace UpdateCheck {

namespace {

using Property = std::optional<std::string> AppcastItem::*;

constexpr std::string_view versionName = "http://www.andymatuschak.org/xml-namespaces/sparkle version";
constexpr std::string_view shortVersionName = "http://www.andymatuschak.org/xml-namespaces/sparkle shortVersionString";
constexpr std::string_view systemName = "http://www.andymatuschak.org/xml-namespaces/sparkle os";

constexpr std::array<std::pair<std::string_view, Property>, 5> properties = {{
    {versionName, &AppcastItem::version},
    {shortVersionName, &AppcastItem::shortVersion},
    {"http://www.andymatuschak.org/xml-namespaces/sparkle minimumSystemVersion", &AppcastItem::minimumSystemVersion},
    {"http://www.andymatuschak.org/xml-namespaces/sparkle channel", &AppcastItem::channel},
    {"link", &AppcastItem::link},
}};

/// The text without the blanks around it, or null if it is then empty, or is too long.
std::optional<std::string> usable(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos || text.size() > Appcast::maximumText)
    return std::nullopt;
  return std::string(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

std::optional<std::string> valueOf(const XMLHandler::Attributes& attributes, std::string_view name) {
  const auto found = attributes.find(name);
  return found == attributes.end() ? std::nullopt : usable(found->second);
}

/// Collects the items of an appcast while its XML is read.
class AppcastBuilder : public XMLHandler {
 public:
  void startElement(std::string_view name, const Attributes& attributes) override {
    property_ = nullptr;
    if (isInItem())
      startProperty(name, attributes);
    path_.emplace_back(name);
    hasChannel_ = hasChannel_ || (path_.size() == 2 && path_[0] == "rss" && path_[1] == "channel");
  }

  void endElement() override {
    if (property_ != nullptr)
      item_.*std::exchange(property_, nullptr) = usable(text_);
    if (isInItem())
      finishItem();
    path_.pop_back();
  }

  void appendText(std::string_view text) override {
    if (property_ != nullptr && text_.size() <= Appcast::maximumText)
      text_ += text;
  }

  /// Whether there was a channel in an rss element, as in every appcast.
  [[nodiscard]] bool hasChannel() const { return hasChannel_; }

  [[nodiscard]] std::vector<AppcastItem> takeItems() { return std::move(items_); }

 private:
  [[nodiscard]] bool isInItem() const {
    return path_.size() == 3 && path_[0] == "rss" && path_[1] == "channel" && path_[2] == "item";
  }

  void startProperty(std::string_view name, const Attributes& attributes) {
    if (name == "enclosure")
      takeEnclosure(attributes);
    for (const auto& [property, place] : properties)
      if (name == property)
        property_ = place;
    text_.clear();
  }

  void takeEnclosure(const Attributes& attributes) {
    if (!valueOf(attributes, "url") || (item_.enclosure && item_.enclosure->isForThisSystem()))
      return;
    item_.enclosure = Enclosure{.version = valueOf(attributes, versionName),
                                .shortVersion = valueOf(attributes, shortVersionName),
                                .operatingSystem = valueOf(attributes, systemName)};
  }

  void finishItem() {
    if (item_.enclosure && !item_.version)
      item_.version = item_.enclosure->version;
    if (item_.enclosure && !item_.shortVersion)
      item_.shortVersion = item_.enclosure->shortVersion;
    items_.push_back(std::exchange(item_, {}));
  }

  /// The names of the open elements.
  std::vector<std::string> path_;
  bool hasChannel_ = false;
  AppcastItem item_;
  /// The property of `item_` that the text belongs to, or null if the text is ignored.
  Property property_ = nullptr;
  std::string text_;
  std::vector<AppcastItem> items_;
};

Version kernelVersion(std::string_view release) {
  return Version(release.substr(0, release.find_first_not_of("0123456789.")));
}

bool isForLinuxAlone(const AppcastItem& item) {
  return item.enclosure && item.enclosure->operatingSystem && item.enclosure->isForThisSystem();
}

bool runsHere(const AppcastItem& item, const Version& kernel) {
  if (item.enclosure && !item.enclosure->isForThisSystem())
    return false;
  return !isForLinuxAlone(item) || !item.minimumSystemVersion || Version(*item.minimumSystemVersion) <= kernel;
}

}  // namespace

std::optional<Platform::URL> AppcastItem::page() const {
  auto url = Platform::URL::parse(link.value_or(""));
  return url && DesktopSupport::lowerCase(url->scheme().value_or("")) == "https" ? url : std::nullopt;
}

std::expected<Appcast, std::string> Appcast::parse(std::string_view bytes) {
  AppcastBuilder builder;
  if (const auto read = readXML(bytes, builder); !read)
    return std::unexpected(read.error());
  if (!builder.hasChannel())
    return std::unexpected("it is not an appcast");
  return Appcast(builder.takeItems());
}

std::optional<AppcastItem> Appcast::newestAfter(std::string_view version, std::string_view kernelRelease) const {
  const Version kernel = kernelVersion(kernelRelease);
  Version newest(version);
  std::optional<AppcastItem> found;
  for (const AppcastItem& item : items_) {
    if (!item.version || item.channel || !runsHere(item, kernel))
      continue;
    if (Version candidate(*item.version); candidate > newest) {
      newest = std::move(candidate);
      found = item;
    }
  }
  return found;
}

}  // namespace UpdateCheck
