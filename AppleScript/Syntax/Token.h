#pragma once

#include <cstdint>
#include <string_view>

#include "AppleScript/Values/ScriptError.h"

namespace AppleScript {

enum class TokenKind : std::uint8_t {
  /// A run of letters, digits and underscores: a word of the language, of a dictionary, or an identifier.
  word,
  /// An identifier in bars; the lexeme is without them.
  barredIdentifier,
  number,
  /// "1st", "2nd"; the lexeme is without its letters.
  ordinal,
  /// A text literal; the lexeme is what stands between the quotes, as written.
  text,
  symbol,
  endOfLine,
  endOfScript,
};

/// A piece of a script. The lexeme points into the source.
struct Token {
  TokenKind kind = TokenKind::endOfScript;
  std::string_view lexeme;
  SourceRange range;
};

}  // namespace AppleScript
