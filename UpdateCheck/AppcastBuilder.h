#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "UpdateCheck/AppcastItem.h"
#include "UpdateCheck/XMLHandler.h"

namespace UpdateCheck {

/// Makes the items of an appcast out of what is told of its XML: RSS 2.0 with elements and attributes of the namespace
/// http://www.andymatuschak.org/xml-namespaces/sparkle. Passes over whatever it doesn't know.
class AppcastBuilder : public XMLHandler {
 public:
  /// A text that is longer, in bytes, is left out, so that it counts as missing.
  static constexpr std::size_t maximumText = 4096;

  void startElement(std::string_view name, const Attributes& attributes) override;
  void endElement() override;
  void appendText(std::string_view text) override;

  /// Whether there was a channel in an rss element, as there is in every appcast.
  [[nodiscard]] bool hasChannel() const { return hasChannel_; }

  /// The items so far, in the feed's order. A version in the item itself has precedence over one in its enclosure; of
  /// several enclosures, the first for this system counts, or else the last.
  [[nodiscard]] const std::vector<AppcastItem>& items() const { return items_; }

 private:
  [[nodiscard]] bool isInItem() const;
  void startProperty(std::string_view name, const Attributes& attributes);
  void takeEnclosure(const Attributes& attributes);
  void finishText();
  void finishItem();

  std::vector<std::string> path_;
  bool hasChannel_ = false;
  AppcastItem item_;
  /// Where the text being read belongs in `item_`.
  std::optional<std::string> AppcastItem::* property_ = nullptr;
  std::string text_;
  std::vector<AppcastItem> items_;
};

}  // namespace UpdateCheck
