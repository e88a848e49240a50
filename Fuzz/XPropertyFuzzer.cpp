#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "DesktopSupport/DesktopEntries/DesktopEntries.h"
#include "DesktopSupport/Processes/ProcessInfo.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/Windows/WindowMatcher.h"
#include "DesktopSupport/Windows/X11/X11Processes.h"
#include "DesktopSupport/Windows/X11/X11Properties.h"
#include "Fuzz/Target.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using DesktopSupport::Reply;
using DesktopSupport::X11Property;
using Fuzz::require;

constexpr xcb_atom_t utf8String = 300;

/// A property as a client may set it: any type, any unit size, any bytes.
struct Property {
  xcb_atom_t type = XCB_ATOM_NONE;
  std::uint8_t format = 0;
  std::string_view value;

  [[nodiscard]] std::size_t unitSize() const { return format / 8U; }
  [[nodiscard]] std::size_t units() const { return format == 0 ? 0 : value.size() / unitSize(); }
};

// The first letter of the input is the kind.
Property propertyOf(std::string_view input) {
  const std::string_view value = input.substr(std::min<std::size_t>(1, input.size()));
  switch (input.empty() ? '\0' : input.front()) {
    case 'u':
      return {.type = utf8String, .format = 8, .value = value};
    case 's':
      return {.type = XCB_ATOM_STRING, .format = 8, .value = value};
    case 'h':
      return {.type = XCB_ATOM_INTEGER, .format = 16, .value = value};
    case 'n':
      return {.type = XCB_ATOM_CARDINAL, .format = 32, .value = value};
    default:
      return {};
  }
}

X11Property answerWith(const Property& property) {
  const std::size_t size = property.units() * property.unitSize();
  const std::size_t words = (size + 3) / 4;
  void* memory = std::calloc(1, sizeof(xcb_get_property_reply_t) + 4 * words);
  require(memory != nullptr, "There is memory.");
  Reply<xcb_get_property_reply_t> reply(new (memory) xcb_get_property_reply_t{});
  reply->response_type = 1;
  reply->format = property.format;
  reply->type = property.type;
  reply->length = static_cast<std::uint32_t>(words);
  reply->value_len = static_cast<std::uint32_t>(property.units());
  if (size > 0)
    std::memcpy(reply.get() + 1, property.value.data(), size);
  return X11Property(std::move(reply));
}

void requireNumbers(const Property& property, const X11Property& answer) {
  const auto numbers = answer.numbers();
  require(numbers.size() == (property.format == 32 ? property.units() : 0), "Each unit of 32 bits is a number.");
  require(numbers.empty() || std::memcmp(numbers.data(), property.value.data(), 4 * numbers.size()) == 0,
          "The numbers are those of the property.");
  require(answer.number() == (numbers.empty() ? std::nullopt : std::optional(numbers.front())),
          "A number is the first one.");
}

void requireTexts(const Property& property, const X11Property& answer) {
  const auto texts = answer.texts(utf8String);
  std::string joined;
  for (const std::string& text : texts)
    joined += text + '\0';
  if (property.type == XCB_ATOM_STRING)
    Fuzz::requireUTF8(joined);
  if (property.type == utf8String && !property.value.empty())
    require(joined == (property.value.ends_with('\0') ? property.value : std::string(property.value) + '\0'),
            "The texts are those of the property.");
  require(texts.empty() || property.format == 8, "Only bytes are text.");
  require(answer.text(utf8String) == (texts.empty() ? "" : texts.front()), "A text is the first one.");
}

// All texts of the window are the same, as from a program that poses as another.
void requireMatch(const X11Property& answer) {
  static const TestSupport::TemporaryFolder folder;
  static const auto file = folder.write(
      "a-b.desktop", "[Desktop Entry]\nType=Application\nName=A\nExec=a --b\nStartupWMClass=Class\nNoDisplay=true\n");
  DesktopSupport::DesktopEntries entries({file.parent_path()});
  const auto texts = answer.texts(utf8String);
  const std::string first = answer.text(utf8String);
  const DesktopSupport::Window window{.instance = first,
                                      .windowClass = texts.size() < 2 ? "" : texts[1],
                                      .title = first,
                                      .applicationID = texts.size() < 3 ? "" : texts[2],
                                      .transientFor = answer.number()};
  const auto* entry = DesktopSupport::matchWindow(entries, window, DesktopSupport::ProcessInfo(std::nullopt));
  require(entry == nullptr || entry->file == file, "A window's application is one that is installed.");
  const std::string title = DesktopSupport::displayable(window.title);
  Fuzz::requireUTF8(title);
  require(DesktopSupport::isDisplayable(title), "A title is one line.");
}

void requireProcess(const X11Property& answer) {
  const auto process =
      DesktopSupport::localProcess({.ofWindow = answer.number(), .machine = "machine.example"}, "machine");
  require(!process || *process > 0, "A process has a number above zero.");
  require(!DesktopSupport::localProcess({.ofWindow = 1, .machine = ""}, answer.text(utf8String)),
          "A window that names no machine has no process.");
}

}  // namespace

// The input is a property of a window: a letter for its kind, and the bytes of its value.
void Fuzz::run(std::string_view input) {
  const Property property = propertyOf(input);
  const X11Property answer = answerWith(property);
  requireNumbers(property, answer);
  requireTexts(property, answer);
  requireMatch(answer);
  requireProcess(answer);
}
