#include "AppleScript/Syntax/Lexer.h"

#include <array>
#include <string>

#include "AppleScript/Text/UTF8.h"
#include "AppleScript/Values/Failure.h"

namespace AppleScript {

namespace {

// Longest first, where one begins another.
constexpr std::array<std::string_view, 22> symbols{"<=", ">=", "/=", "≠", "≤", "≥", "÷", "(", ")", "{", "}",
                                                   ",",  ":",  "+",  "-", "*", "/", "^", "&", "=", "<", ">"};
constexpr std::string_view possessive = "'s";
constexpr std::string_view continuation = "¬";
constexpr std::string_view noBreakSpace = "\u00A0";
constexpr std::string_view byteOrderMark = "\uFEFF";

bool isDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

bool isWordStart(char byte) {
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_';
}

bool isWordPart(char byte) {
  return isWordStart(byte) || isDigit(byte);
}

std::string expected(std::string_view wanted, std::string_view found) {
  return "Expected " + std::string(wanted) + " but found " + std::string(found) + ".";
}

}  // namespace

std::vector<Token> Lexer::tokens() {
  requireUTF8();
  accept(byteOrderMark);
  std::vector<Token> result;
  do {
    result.push_back(next());
  } while (result.back().kind != TokenKind::endOfScript);
  return result;
}

void Lexer::requireUTF8() const {
  if (const auto malformed = UTF8::firstMalformed(source_)) {
    const std::size_t character = UTF8::count(source_.substr(0, *malformed));
    fail(ErrorNumber::syntaxError, "The script is not UTF-8 text.", {character, 1});
  }
}

Token Lexer::next() {
  skipBlanks();
  const std::size_t start = character_;
  if (atEnd())
    return {TokenKind::endOfScript, {}, rangeFrom(start)};
  const TokenKind kind = acceptLineEnd() ? TokenKind::endOfLine : scan();
  const Keyword keyword = kind == TokenKind::word ? keywordFrom(lexeme_) : Keyword::none;
  return {kind, lexeme_, rangeFrom(start), keyword};
}

bool Lexer::accept(std::string_view text) {
  const bool found = startsWith(text);
  if (found)
    advance(text.size());
  return found;
}

void Lexer::advance(std::size_t bytes) {
  for (const std::size_t end = offset_ + bytes; offset_ < end; ++offset_)
    character_ += UTF8::isContinuation(source_[offset_]) ? 0 : 1;
}

void Lexer::skipBlanks() {
  while (accept(" ") || accept("\t") || accept(noBreakSpace) || skipContinuation() || skipComment()) {
  }
}

bool Lexer::skipComment() {
  if (startsWith("--") || startsWith("#")) {
    skipLine();
    return true;
  }
  if (startsWith("(*")) {
    skipNestedComment();
    return true;
  }
  return false;
}

void Lexer::skipLine() {
  const std::size_t end = source_.find_first_of("\r\n", offset_);
  advance((end == std::string_view::npos ? source_.size() : end) - offset_);
}

void Lexer::skipNestedComment() {
  const std::size_t start = character_;
  std::size_t depth = 0;
  do {
    if (accept("(*"))
      ++depth;
    else if (accept("*)"))
      --depth;
    else if (atEnd())
      fail(ErrorNumber::syntaxError, expected("“*)”", "end of script"), rangeFrom(start));
    else
      advance(1);
  } while (depth > 0);
}

/// `¬` and the end of its line.
bool Lexer::skipContinuation() {
  if (!accept(continuation))
    return false;
  while (accept(" ") || accept("\t")) {
  }
  if (!atEnd() && !acceptLineEnd())
    fail(ErrorNumber::syntaxError, expected("end of line after “¬”", "something else"), {character_, 1});
  return true;
}

bool Lexer::acceptLineEnd() {
  return accept("\r\n") || accept("\n") || accept("\r");
}

TokenKind Lexer::scan() {
  if (current() == '"')
    return scanText();
  if (current() == '|')
    return scanBarredIdentifier();
  const bool startsWithPoint = current() == '.' && offset_ + 1 < source_.size() && isDigit(source_[offset_ + 1]);
  if (isDigit(current()) || startsWithPoint)
    return scanNumber();
  return isWordStart(current()) ? scanWord() : scanSymbol();
}

TokenKind Lexer::scanText() {
  const std::size_t start = character_;
  advance(1);
  const std::size_t first = offset_;
  while (!atEnd() && current() != '"') {
    if (current() == '\\') {
      advance(1);
      if (std::string_view("\"\\nrt").find(current()) == std::string_view::npos || atEnd())
        fail(ErrorNumber::syntaxError, expected("“\"”", "unknown token"), {character_ - 1, 1});
    }
    advance(1);
  }
  lexeme_ = source_.substr(first, offset_ - first);
  if (!accept("\""))
    fail(ErrorNumber::syntaxError, expected("“\"”", "end of script"), rangeFrom(start));
  return TokenKind::text;
}

TokenKind Lexer::scanBarredIdentifier() {
  const std::size_t start = character_;
  advance(1);
  const std::size_t end = source_.find_first_of("|\r\n", offset_);
  if (end == std::string_view::npos || source_[end] != '|')
    fail(ErrorNumber::syntaxError, expected("“|”", "end of line"), rangeFrom(start));
  lexeme_ = source_.substr(offset_, end - offset_);
  advance(end + 1 - offset_);
  return TokenKind::barredIdentifier;
}

TokenKind Lexer::scanNumber() {
  const std::size_t start = offset_;
  skipDigits();
  if (accept("."))
    skipDigits();
  skipExponent();
  lexeme_ = source_.substr(start, offset_ - start);
  const bool isOrdinal = accept("st") || accept("nd") || accept("rd") || accept("th");
  return isOrdinal ? TokenKind::ordinal : TokenKind::number;
}

void Lexer::skipExponent() {
  const std::string_view rest = source_.substr(offset_);
  const bool isSigned = rest.size() > 1 && (rest[1] == '+' || rest[1] == '-');
  const std::size_t digits = isSigned ? 2 : 1;
  if ((current() == 'e' || current() == 'E') && rest.size() > digits && isDigit(rest[digits])) {
    advance(digits);
    skipDigits();
  }
}

void Lexer::skipDigits() {
  while (isDigit(current()))
    advance(1);
}

TokenKind Lexer::scanWord() {
  const std::size_t start = offset_;
  while (isWordPart(current()))
    advance(1);
  // "isn't" is one word; the apostrophe of "it's" begins a token of its own.
  const bool negated = source_.substr(start, offset_ - start).ends_with('n') && startsWith("'t");
  if (negated)
    advance(2);
  lexeme_ = source_.substr(start, offset_ - start);
  return TokenKind::word;
}

TokenKind Lexer::scanSymbol() {
  const std::size_t start = offset_;
  bool known = accept(possessive);
  for (std::size_t i = 0; i < symbols.size() && !known; ++i)
    known = accept(symbols[i]);
  if (!known)
    fail(ErrorNumber::syntaxError, expected("expression", "unknown token"), {character_, 1});
  lexeme_ = source_.substr(start, offset_ - start);
  return TokenKind::symbol;
}

SourceRange Lexer::rangeFrom(std::size_t start) const {
  return {start, character_ - start};
}

std::string unescaped(std::string_view lexeme) {
  std::string text;
  text.reserve(lexeme.size());
  for (std::size_t i = 0; i < lexeme.size(); ++i) {
    if (lexeme[i] != '\\') {
      text += lexeme[i];
      continue;
    }
    ++i;
    text += lexeme[i] == 'n' ? '\n' : lexeme[i] == 'r' ? '\r' : lexeme[i] == 't' ? '\t' : lexeme[i];
  }
  return text;
}

}  // namespace AppleScript
