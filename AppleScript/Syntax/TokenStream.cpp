#include "AppleScript/Syntax/TokenStream.h"

#include <algorithm>
#include <utility>

#include "AppleScript/Syntax/OperatorPhrases.h"
#include "AppleScript/Text/CaseFolding.h"

namespace AppleScript {

namespace {

bool spells(const Token& token, std::string_view part) {
  return (token.kind == TokenKind::word || token.kind == TokenKind::symbol) && sameName(token.lexeme, part);
}

}  // namespace

bool isName(const Token& token) {
  const bool isWord =
      token.kind == TokenKind::word && !isReserved(token.keyword) && !isReservedForOperators(token.lexeme);
  return isWord || token.kind == TokenKind::barredIdentifier;
}

TokenStream::TokenStream(std::vector<Token> tokens) : tokens_(std::move(tokens)) {}

const Token& TokenStream::peek(std::size_t ahead) const {
  return tokens_[std::min(position_ + ahead, tokens_.size() - 1)];
}

const Token& TokenStream::take() {
  const Token& token = peek();
  skip(1);
  return token;
}

void TokenStream::skip(std::size_t count) {
  position_ = std::min(position_ + count, tokens_.size() - 1);
}

bool TokenStream::atSymbol(std::string_view symbol, std::size_t ahead) const {
  const Token& token = peek(ahead);
  return token.kind == TokenKind::symbol && token.lexeme == symbol;
}

bool TokenStream::acceptWord(Keyword word) {
  const bool found = atWord(word);
  skip(found ? 1 : 0);
  return found;
}

bool TokenStream::acceptSymbol(std::string_view symbol) {
  const bool found = atSymbol(symbol);
  skip(found ? 1 : 0);
  return found;
}

bool TokenStream::acceptLineEnd() {
  const bool found = peek().kind == TokenKind::endOfLine;
  skip(found ? 1 : 0);
  return found;
}

std::size_t TokenStream::matchPhrase(std::string_view phrase, std::size_t ahead) const {
  std::size_t count = 0;
  while (!phrase.empty()) {
    const std::string_view part = phrase.substr(0, phrase.find(' '));
    if (!spells(peek(ahead + count), part))
      return 0;
    phrase.remove_prefix(std::min(phrase.size(), part.size() + 1));
    ++count;
  }
  return count;
}

bool TokenStream::atLineEnd() const {
  return peek().kind == TokenKind::endOfLine || atScriptEnd();
}

SourceRange TokenStream::rangeSince(std::size_t position) const {
  const SourceRange first = tokens_[position].range;
  const SourceRange last = position_ > position ? previous().range : first;
  return {first.start, last.start + last.length - first.start};
}

}  // namespace AppleScript
