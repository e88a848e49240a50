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
  /// Letters, digits and underscores: a word of the language or of a dictionary, or an identifier.
  word,
  /// An identifier in bars. The lexeme is without the bars.
  barredIdentifier,
  number,
  /// "1st", "2nd". The lexeme is without the letters.
  ordinal,
  /// A text literal. The lexeme is the source between the quotes.
  text,
  symbol,
  endOfLine,
  endOfScript,
};

/// The smallest unit of a script. The lexeme points into the source.
struct Token {
  TokenKind kind = TokenKind::endOfScript;
  std::string_view lexeme;
  SourceRange range;
  /// `none` if this is not a word.
  Keyword keyword = Keyword::none;
};

/// Splits a script into tokens.
class Lexer {
 public:
  /// `source` must outlive the tokens.
  explicit Lexer(std::string_view source) : source_(source) {}

  /// All tokens of the source; the last one is `endOfScript`. Throws a syntax error if the source is not UTF-8, if a
  /// text or a comment does not end, or at a character that the language does not use.
  [[nodiscard]] std::vector<Token> tokens();

 private:
  void requireUTF8() const;
  [[nodiscard]] Token next();
  [[nodiscard]] bool startsWith(std::string_view text) const { return source_.substr(offset_).starts_with(text); }
  [[nodiscard]] bool atEnd() const { return offset_ == source_.size(); }
  [[nodiscard]] char current() const { return atEnd() ? '\0' : source_[offset_]; }
  [[nodiscard]] std::string currentCharacter() const;
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
  /// The current position, in bytes and in characters.
  std::size_t offset_ = 0;
  std::size_t character_ = 0;
  std::string_view lexeme_;
};

/// The text of a text literal, without escapes. The lexer accepts no escapes but `\"`, `\\`, `\n`, `\r` and `\t`.
[[nodiscard]] std::string unescaped(std::string_view lexeme);

}  // namespace AppleScript
