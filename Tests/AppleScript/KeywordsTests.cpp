#include <gtest/gtest.h>

#include "AppleScript/Syntax/Lexer.h"
#include "AppleScript/Syntax/TokenStream.h"
#include "AppleScript/Text/Keywords.h"

namespace AppleScript {
namespace {

bool canBeAName(std::string_view word) {
  return isName(Lexer(word).tokens().front());
}

TEST(Keywords, AreKnownInAnyCase) {
  EXPECT_EQ(keywordFrom("tell"), Keyword::tell);
  EXPECT_EQ(keywordFrom("TELL"), Keyword::tell);
  EXPECT_EQ(keywordFrom("back"), Keyword::back);
  EXPECT_EQ(keywordFrom("without"), Keyword::without);
}

TEST(Keywords, AreWholeWords) {
  for (const char* word : {"", "tel", "tells", "a", "zebra", "aVeryLongNameOfAVariable"})
    EXPECT_EQ(keywordFrom(word), Keyword::none) << word;
}

TEST(Keywords, AreSpelledInLowerCase) {
  EXPECT_EQ(spelling(keywordFrom("Repeat")), "repeat");
}

TEST(Keywords, CannotBeNamesIfTheyAreReserved) {
  for (const char* word :
       {"and",    "as",        "begin",   "begins", "by",     "considering", "contain",  "contains", "copy",  "count",
        "div",    "does",      "doesn't", "else",   "end",    "ends",        "equal",    "equals",   "error", "every",
        "exists", "exit",      "from",    "get",    "global", "if",          "ignoring", "in",       "is",    "isn't",
        "it",     "its",       "local",   "mod",    "my",     "not",         "of",       "on",       "or",    "repeat",
        "return", "returning", "set",     "some",   "tell",   "the",         "then",     "through",  "thru",  "times",
        "to",     "try",       "until",   "where",  "while",  "whose",       "with",     "without"})
    EXPECT_FALSE(canBeAName(word)) << word;
}

TEST(Keywords, CanBeNamesIfTheyMeanSomethingInSomePlacesOnly) {
  for (const char* word : {"back", "beginning", "first", "front", "id", "index", "last", "middle", "named", "number",
                           "result", "tenth", "comes", "greater", "less", "start", "starts"})
    EXPECT_TRUE(canBeAName(word)) << word;
}

TEST(Keywords, InBarsAreNames) {
  EXPECT_TRUE(canBeAName("|tell|"));
}

}  // namespace
}  // namespace AppleScript
