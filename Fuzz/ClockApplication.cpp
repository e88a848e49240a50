#include "Fuzz/ClockApplication.h"

#include <ranges>

#include "AppleScript/Syntax/Lexer.h"
#include "AppleScript/Values/Application.h"
#include "Fuzz/AllocationCount.h"

namespace Fuzz {

namespace {

// A line may double a text, or put a list twice into another, so few lines already make large values.
constexpr std::size_t mostTicks = 48;
constexpr std::size_t mostBytes = 512 << 10;

constexpr std::string_view tickLine = "tell application \"Clock\" to tick\n";

/// The size of the first characters of the text, in bytes.
std::size_t bytesOf(std::string_view text, std::size_t characters) {
  std::size_t offset = 0;
  for (; offset < text.size(); ++offset)
    if ((static_cast<unsigned char>(text[offset]) & 0xC0) != 0x80 && characters-- == 0)
      break;
  return offset;
}

}  // namespace

std::string ClockApplication::withTicks(std::string_view source) {
  std::string ticked(source);
  ticked += '\n';
  const auto tokens = AppleScript::Lexer(source).tokens();
  // From the end, so that the offsets of the remaining tokens stay valid.
  for (const auto& token : std::views::reverse(tokens))
    if (token.kind == AppleScript::TokenKind::endOfLine)
      ticked.insert(bytesOf(source, token.range.start + token.range.length), tickLine);
  return ticked;
}

void ClockApplication::restart() {
  ticks_ = 0;
  bytesAtStart_ = allocatedBytes();
}

const AppleScript::Dictionary& ClockApplication::dictionary() const {
  static const AppleScript::ClassDescription root{.name = "application", .plural = "applications", .properties = {}};
  static constexpr AppleScript::CommandDescription commands[] = {{.name = "tick", .run = tick}};
  static const AppleScript::Dictionary dictionary{.application = &root, .commands = commands};
  return dictionary;
}

AppleScript::Result<AppleScript::ObjectPointer> ClockApplication::open() {
  return std::unexpected(AppleScript::ScriptError{.number = AppleScript::ErrorNumber::notRunning,
                                                  .message = "Application isn’t running."});
}

AppleScript::Result<AppleScript::Value> ClockApplication::tick(AppleScript::Application& application,
                                                               const AppleScript::Arguments& /*arguments*/) {
  auto& clock = static_cast<ClockApplication&>(application);
  if (++clock.ticks_ > mostTicks || allocatedBytes() - clock.bytesAtStart_ > mostBytes)
    throw Stopped();
  return AppleScript::Value();
}

}  // namespace Fuzz
