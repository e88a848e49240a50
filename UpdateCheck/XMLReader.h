#pragma once

#include <expected>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace UpdateCheck {

/// Receives the parts of an XML document while it is read. A name in a namespace is the namespace's URI, a space and
/// the local name.
class XMLHandler {
 public:
  using Attributes = std::map<std::string, std::string, std::less<>>;

  virtual ~XMLHandler() = default;

  virtual void startElement(std::string_view name, const Attributes& attributes) = 0;
  virtual void endElement() = 0;
  /// A piece of the text in the innermost open element. One text can come in several pieces.
  virtual void appendText(std::string_view text) = 0;
};

/// How deep elements may be nested.
inline constexpr int maximumXMLDepth = 64;

/// Reads a document that cannot be trusted. The handler gets its elements and text as UTF-8. Nothing outside of the
/// document is loaded. Fails with a clause for the log if the document is not well-formed, declares entities or is
/// nested too deeply; the handler may have been called before that.
std::expected<void, std::string> readXML(std::string_view document, XMLHandler& handler);

}  // namespace UpdateCheck
