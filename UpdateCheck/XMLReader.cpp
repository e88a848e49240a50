#include "UpdateCheck/XMLReader.h"

#include <climits>
#include <cstddef>
#include <memory>
#include <type_traits>

#include <expat.h>

#include "DesktopSupport/System/GLibHandles.h"

namespace UpdateCheck {

namespace {

using ParserHandle = std::unique_ptr<std::remove_pointer_t<XML_Parser>, DesktopSupport::ReleasedBy<XML_ParserFree>>;

/// Passes on what the parser finds in one document.
class Reading {
 public:
  explicit Reading(XMLHandler& handler) : parser_(XML_ParserCreateNS(nullptr, ' ')), handler_(handler) {
    XML_SetUserData(parser_.get(), this);
    XML_SetElementHandler(parser_.get(), &started, &ended);
    XML_SetCharacterDataHandler(parser_.get(), &textRead);
    XML_SetEntityDeclHandler(parser_.get(), &entityDeclared);
  }

  std::expected<void, std::string> read(std::string_view document) {
    if (XML_Parse(parser_.get(), document.data(), static_cast<int>(document.size()), XML_TRUE) == XML_STATUS_OK)
      return {};
    if (!problem_.empty())
      return std::unexpected(problem_);
    return std::unexpected(std::string(XML_ErrorString(XML_GetErrorCode(parser_.get()))) + " in line " +
                           std::to_string(XML_GetCurrentLineNumber(parser_.get())));
  }

 private:
  static Reading& from(void* data) { return *static_cast<Reading*>(data); }

  static void started(void* data, const char* name, const char** attributes) {
    Reading& reading = from(data);
    if (++reading.depth_ > maximumXMLDepth)
      return reading.stop("it is nested too deeply");
    XMLHandler::Attributes values;
    for (const char** attribute = attributes; *attribute != nullptr; attribute += 2)
      values.emplace(attribute[0], attribute[1]);
    reading.handler_.startElement(name, values);
  }

  // The parser still ends an empty element that it was stopped at.
  static void ended(void* data, const char* /*name*/) {
    Reading& reading = from(data);
    --reading.depth_;
    if (reading.problem_.empty())
      reading.handler_.endElement();
  }

  static void textRead(void* data, const char* text, int length) {
    from(data).handler_.appendText({text, static_cast<std::size_t>(length)});
  }

  static void entityDeclared(void* data, const char* /*name*/, int /*isParameter*/, const char* /*value*/,
                             int /*length*/, const char* /*base*/, const char* /*systemID*/, const char* /*publicID*/,
                             const char* /*notation*/) {
    from(data).stop("it declares entities");
  }

  void stop(const char* problem) {
    problem_ = problem;
    XML_StopParser(parser_.get(), XML_FALSE);
  }

  ParserHandle parser_;
  XMLHandler& handler_;
  int depth_ = 0;
  std::string problem_;
};

}  // namespace

std::expected<void, std::string> readXML(std::string_view document, XMLHandler& handler) {
  if (document.size() > INT_MAX)
    return std::unexpected("it is too long");
  return Reading(handler).read(document);
}

}  // namespace UpdateCheck
