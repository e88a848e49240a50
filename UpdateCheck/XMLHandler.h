#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace UpdateCheck {

/// What is told of an XML document while it is read. A name in a namespace is its URI, a space and the local name.
class XMLHandler {
 public:
  using Attributes = std::map<std::string, std::string, std::less<>>;

  virtual ~XMLHandler() = default;

  virtual void startElement(std::string_view name, const Attributes& attributes) = 0;
  virtual void endElement() = 0;
  /// A piece of the text of the element started last and not ended; a text can come in several.
  virtual void appendText(std::string_view text) = 0;
};

}  // namespace UpdateCheck
