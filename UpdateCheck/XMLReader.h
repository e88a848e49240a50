#pragma once

#include <expected>
#include <string>
#include <string_view>

#include "UpdateCheck/XMLHandler.h"

namespace UpdateCheck {

/// Reads XML that comes from anywhere.
class XMLReader {
 public:
  /// How deep elements may lie in each other.
  static constexpr int maximumDepth = 64;

  /// Tells the handler of the document's elements and text, as UTF-8. Nothing outside of the document is loaded. Fails
  /// with a clause for the log over a document that is not well-formed, declares entities, or is nested too deeply; the
  /// handler may have been told of its beginning then.
  static std::expected<void, std::string> read(std::string_view document, XMLHandler& handler);
};

}  // namespace UpdateCheck
