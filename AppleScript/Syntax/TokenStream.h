#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "AppleScript/Syntax/Token.h"

namespace AppleScript {

/// The tokens of a script and the place that the parser has reached in them.
class TokenStream {
 public:
  /// `tokens` must end in `endOfScript`.
  explicit TokenStream(std::vector<Token> tokens);

  /// The token `ahead` places further on; the last one where there are not so many.
  [[nodiscard]] const Token& peek(std::size_t ahead = 0) const;
  /// The current token, and goes on to the next.
  const Token& take();
  void skip(std::size_t count);

  [[nodiscard]] bool atWord(std::string_view word, std::size_t ahead = 0) const;
  [[nodiscard]] bool atSymbol(std::string_view symbol, std::size_t ahead = 0) const;
  bool acceptWord(std::string_view word);
  bool acceptSymbol(std::string_view symbol);
  bool acceptLineEnd();

  /// How many tokens spell `phrase`, which is words or a symbol with one space between them; 0 where they don't.
  [[nodiscard]] std::size_t matchPhrase(std::string_view phrase, std::size_t ahead = 0) const;

  [[nodiscard]] bool atLineEnd(std::size_t ahead = 0) const;
  [[nodiscard]] bool atScriptEnd() const { return peek().kind == TokenKind::endOfScript; }

  [[nodiscard]] std::size_t position() const { return position_; }
  /// From the token at `position` to the one before the current one.
  [[nodiscard]] SourceRange rangeSince(std::size_t position) const;
  /// The token before the current one; the current one at the start of the script.
  [[nodiscard]] const Token& previous() const { return tokens_[position_ == 0 ? 0 : position_ - 1]; }

 private:
  std::vector<Token> tokens_;
  std::size_t position_ = 0;
};

}  // namespace AppleScript
