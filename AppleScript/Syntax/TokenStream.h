#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "AppleScript/Syntax/Lexer.h"

namespace AppleScript {

/// Whether `token` can be the name of a variable: an identifier in bars, or a word that is not reserved.
[[nodiscard]] bool isName(const Token& token);

/// The tokens of a script and the parser's position in them.
class TokenStream {
 public:
  /// `tokens` must end in `endOfScript`.
  explicit TokenStream(std::vector<Token> tokens);

  /// The token `ahead` positions after the current one, or the last one if there are fewer.
  [[nodiscard]] const Token& peek(std::size_t ahead = 0) const;
  /// Yields the current token and goes on to the next.
  const Token& take();
  void skip(std::size_t count);

  [[nodiscard]] bool atWord(Keyword word, std::size_t ahead = 0) const { return peek(ahead).keyword == word; }
  [[nodiscard]] bool atSymbol(std::string_view symbol, std::size_t ahead = 0) const;
  bool acceptWord(Keyword word);
  bool acceptSymbol(std::string_view symbol);
  bool acceptLineEnd();

  /// The number of tokens that spell `phrase`: words separated by single spaces, or one symbol. 0 if they don't.
  [[nodiscard]] std::size_t matchPhrase(std::string_view phrase, std::size_t ahead = 0) const;

  [[nodiscard]] bool atLineEnd() const;
  [[nodiscard]] bool atScriptEnd() const { return peek().kind == TokenKind::endOfScript; }

  [[nodiscard]] std::size_t position() const { return position_; }
  /// The source from the token at `position` to the one before the current one.
  [[nodiscard]] SourceRange rangeSince(std::size_t position) const;
  /// The token before the current one; the current one at the start of the script.
  [[nodiscard]] const Token& previous() const { return tokens_[position_ == 0 ? 0 : position_ - 1]; }

 private:
  std::vector<Token> tokens_;
  std::size_t position_ = 0;
};

}  // namespace AppleScript
