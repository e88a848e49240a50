#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "AppleScript/Syntax/Lexer.h"
#include "AppleScript/Values/Failure.h"

namespace AppleScript {
namespace {

std::vector<std::string> lexemes(std::string_view source) {
  std::vector<std::string> result;
  for (const Token& token : Lexer(source).tokens())
    result.emplace_back(token.kind == TokenKind::endOfLine ? "EOL" : token.lexeme);
  result.pop_back();
  return result;
}

ScriptError errorOf(std::string_view source) {
  try {
    (void)Lexer(source).tokens();
  } catch (const Failure& failure) {
    return failure.error;
  }
  return {.message = "no error"};
}

using Lexemes = std::vector<std::string>;

TEST(Lexer, CutsWordsNumbersTextsAndSymbols) {
  EXPECT_EQ(lexemes("set x_1 to \"a b\"&2.5E+3"), (Lexemes{"set", "x_1", "to", "a b", "&", "2.5E+3"}));
}

TEST(Lexer, TakesTheLongestSymbol) {
  EXPECT_EQ(lexemes("a<=b/=c≠d"), (Lexemes{"a", "<=", "b", "/=", "c", "≠", "d"}));
}

TEST(Lexer, TellsAPossessiveFromANegation) {
  EXPECT_EQ(lexemes("x's y isn't z"), (Lexemes{"x", "'s", "y", "isn't", "z"}));
}

TEST(Lexer, ReadsOrdinals) {
  const auto tokens = Lexer("2nd window").tokens();
  EXPECT_EQ(tokens[0].kind, TokenKind::ordinal);
  EXPECT_EQ(tokens[0].lexeme, "2");
}

TEST(Lexer, AnEWithoutDigitsIsNoExponent) {
  EXPECT_EQ(lexemes("1e x"), (Lexemes{"1", "e", "x"}));
}

TEST(Lexer, EndsLinesAtEveryKindOfLineBreak) {
  EXPECT_EQ(lexemes("a\nb\rc\r\nd"), (Lexemes{"a", "EOL", "b", "EOL", "c", "EOL", "d"}));
}

TEST(Lexer, JoinsContinuedLines) {
  EXPECT_EQ(lexemes("a ¬\n b ¬ \r\n c"), (Lexemes{"a", "b", "c"}));
  EXPECT_EQ(errorOf("a ¬ b").number, ErrorNumber::syntaxError);
}

TEST(Lexer, SkipsByteOrderMarkAndNoBreakSpaces) {
  EXPECT_EQ(lexemes("\uFEFFa\u00A0b"), (Lexemes{"a", "b"}));
}

TEST(Lexer, CountsPlacesInCharacters) {
  const auto tokens = Lexer("\"日本\" & x").tokens();
  EXPECT_EQ(tokens[0].range, (SourceRange{0, 4}));
  EXPECT_EQ(tokens[1].range, (SourceRange{5, 1}));
  EXPECT_EQ(tokens[2].range, (SourceRange{7, 1}));
}

TEST(Lexer, RefusesTextWithoutAnEnd) {
  const ScriptError error = errorOf("x & \"abc");
  EXPECT_EQ(error.number, ErrorNumber::syntaxError);
  EXPECT_EQ(error.message, "Expected “\"” but found end of script.");
  EXPECT_EQ(error.range, (SourceRange{4, 4}));
}

TEST(Lexer, RefusesABackslashAtTheEnd) {
  EXPECT_EQ(errorOf("\"abc\\").number, ErrorNumber::syntaxError);
}

TEST(Lexer, RefusesACommentWithoutAnEnd) {
  EXPECT_EQ(errorOf("1 (* (* *)").message, "Expected “*)” but found end of script.");
}

TEST(Lexer, RefusesWhatIsNotUTF8AndSaysWhere) {
  for (const char* source : {"ä\xff", "ä\xc3", "ä\xc0\x80", "ä\xed\xa0\x80", "ä\xf5\x80\x80\x80", "ä\x80"}) {
    const ScriptError error = errorOf(source);
    EXPECT_EQ(error.number, ErrorNumber::syntaxError) << source;
    EXPECT_EQ(error.range, (SourceRange{1, 1})) << source;
  }
}

TEST(Lexer, ReplacesEscapes) {
  EXPECT_EQ(unescaped(R"(a\"b\\c\n\r\td)"), "a\"b\\c\n\r\td");
}

}  // namespace
}  // namespace AppleScript
