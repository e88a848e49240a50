#include <string>

#include "BrowserSessions/Firefox/FirefoxState.h"
#include "BrowserSessions/Firefox/MozillaLZ4.h"
#include "Fuzz/SoundSession.h"
#include "Fuzz/Target.h"
#include "Tests/BrowserSessions/MozillaLZ4File.h"

namespace {

void readState(std::string_view json) {
  const auto session = BrowserSessions::firefoxState(std::string(json));
  if (session)
    Fuzz::requireSound(*session, json.size(), {.tab = 2, .window = std::string_view(R"({"tabs":[]})").size()});
  else
    Fuzz::require(!session.error().empty(), "A failure has a reason.");
}

void readFile(std::string_view file) {
  const auto contents = BrowserSessions::mozillaLZ4Contents(file);
  if (!contents) {
    Fuzz::require(!contents.error().empty(), "A failure has a reason.");
    return;
  }
  readState(*contents);
  const std::string_view cut = file.substr(0, file.size() - 1);
  Fuzz::require(contents->empty() || !BrowserSessions::mozillaLZ4Contents(cut), "A file that lacks a byte is refused.");
}

void requireSameContents(std::string_view contents) {
  const auto unpacked = BrowserSessions::mozillaLZ4Contents(BrowserSessions::Testing::mozillaLZ4File(contents));
  Fuzz::require(unpacked && *unpacked == contents, "Unpacking returns what was compressed.");
}

}  // namespace

// The input is a file in Firefox's format or, if it does not begin like one, the JSON text that such a file contains.
void Fuzz::run(std::string_view input) {
  if (input.starts_with("mozLz4")) {
    readFile(input);
  } else {
    readState(input);
    requireSameContents(input);
  }
}
