#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "AppleScript/Text/Keywords.h"
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
  /// `none` if this is no word.
  Keyword keyword = Keyword::none;
};

/// Cuts a script into tokens.
class Lexer {
 public:
  /// `source` must outlive the tokens.
  explicit Lexer(std::string_view source) : source_(source) {}

  /// All tokens of the source; the last one is `endOfScript`. Throws a syntax error where the source is not UTF-8,
  /// where a text or a comment has no end, and at characters that mean nothing.
  [[nodiscard]] std::vector<Token> tokens();

 private:
  void requireUTF8() const;
  [[nodiscard]] Token next();
  [[nodiscard]] bool startsWith(std::string_view text) const { return source_.substr(offset_).starts_with(text); }
  [[nodiscard]] bool atEnd() const { return offset_ == source_.size(); }
  [[nodiscard]] char current() const { return atEnd() ? '\0' : source_[offset_]; }
  bool accept(std::string_view text);
  void advance(std::size_t bytes);

  void skipBlanks();
  bool skipComment();
  void skipLine();
  void skipNestedComment();
  bool skipContinuation();
  bool acceptLineEnd();

  [[nodiscard]] TokenKind scan();
  [[nodiscard]] TokenKind scanText();
  [[nodiscard]] TokenKind scanBarredIdentifier();
  [[nodiscard]] TokenKind scanNumber();
  [[nodiscard]] TokenKind scanWord();
  [[nodiscard]] TokenKind scanSymbol();
  void skipExponent();
  void skipDigits();
  [[nodiscard]] SourceRange rangeFrom(std::size_t start) const;

  std::string_view source_;
  /// The place reached, in bytes and in characters.
  std::size_t offset_ = 0;
  std::size_t character_ = 0;
  std::string_view lexeme_;
};

/// What a text literal stands for, its escapes replaced. The lexer has seen to it that there are none but `\"`, `\\`,
/// `\n`, `\r` and `\t`.
[[nodiscard]] std::string unescaped(std::string_view lexeme);

}  // namespace AppleScript
