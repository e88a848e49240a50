#include "AppleScript/Text/Keywords.h"

#include <array>
#include <cstddef>

#include "AppleScript/Text/CaseFolding.h"

namespace AppleScript {

namespace {

struct Entry {
  std::string_view word;
  Keyword keyword;
  bool isReserved;
};

constexpr bool reserved = true;
constexpr bool contextual = false;

constexpr auto table = std::to_array<Entry>({
    {"", Keyword::none, contextual},
    {"back", Keyword::back, contextual},
    {"beginning", Keyword::beginning, contextual},
    {"by", Keyword::by, reserved},
    {"considering", Keyword::considering, reserved},
    {"copy", Keyword::copy, reserved},
    {"count", Keyword::count, reserved},
    {"eighth", Keyword::eighth, contextual},
    {"else", Keyword::elseWord, reserved},
    {"end", Keyword::end, reserved},
    {"error", Keyword::error, reserved},
    {"every", Keyword::every, reserved},
    {"exists", Keyword::exists, reserved},
    {"exit", Keyword::exit, reserved},
    {"fifth", Keyword::fifth, contextual},
    {"first", Keyword::first, contextual},
    {"fourth", Keyword::fourth, contextual},
    {"from", Keyword::from, reserved},
    {"front", Keyword::front, contextual},
    {"get", Keyword::get, reserved},
    {"global", Keyword::global, reserved},
    {"id", Keyword::id, contextual},
    {"if", Keyword::ifWord, reserved},
    {"ignoring", Keyword::ignoring, reserved},
    {"in", Keyword::in, reserved},
    {"index", Keyword::index, contextual},
    {"it", Keyword::it, reserved},
    {"its", Keyword::its, reserved},
    {"last", Keyword::last, contextual},
    {"local", Keyword::local, reserved},
    {"middle", Keyword::middle, contextual},
    {"my", Keyword::my, reserved},
    {"named", Keyword::named, contextual},
    {"ninth", Keyword::ninth, contextual},
    {"not", Keyword::notWord, reserved},
    {"number", Keyword::number, contextual},
    {"of", Keyword::of, reserved},
    {"on", Keyword::on, reserved},
    {"repeat", Keyword::repeat, reserved},
    {"result", Keyword::result, contextual},
    {"return", Keyword::returnWord, reserved},
    {"returning", Keyword::returning, reserved},
    {"second", Keyword::second, contextual},
    {"set", Keyword::set, reserved},
    {"seventh", Keyword::seventh, contextual},
    {"sixth", Keyword::sixth, contextual},
    {"some", Keyword::some, reserved},
    {"tell", Keyword::tell, reserved},
    {"tenth", Keyword::tenth, contextual},
    {"the", Keyword::the, reserved},
    {"then", Keyword::then, reserved},
    {"third", Keyword::third, contextual},
    {"through", Keyword::through, reserved},
    {"thru", Keyword::thru, reserved},
    {"times", Keyword::times, reserved},
    {"to", Keyword::to, reserved},
    {"try", Keyword::tryWord, reserved},
    {"until", Keyword::until, reserved},
    {"where", Keyword::where, reserved},
    {"while", Keyword::whileWord, reserved},
    {"whose", Keyword::whose, reserved},
    {"with", Keyword::with, reserved},
    {"without", Keyword::without, reserved},
});

constexpr bool isInOrder() {
  for (std::size_t i = 0; i < table.size(); ++i)
    if (table[i].keyword != static_cast<Keyword>(i) || (i > 0 && table[i].word <= table[i - 1].word))
      return false;
  return true;
}
static_assert(isInOrder());

/// For each letter, the index of the first entry that begins with it or a later one; last the number of entries.
constexpr auto starts = [] {
  std::array<std::size_t, 27> result{};
  for (std::size_t letter = 0; letter < result.size(); ++letter)
    while (result[letter] < table.size() &&
           table[result[letter]].word < std::string_view(&"abcdefghijklmnopqrstuvwxyz{"[letter], 1))
      ++result[letter];
  return result;
}();

const Entry& entry(Keyword keyword) {
  return table[static_cast<std::size_t>(keyword)];
}

}  // namespace

Keyword keywordFrom(std::string_view word) {
  const auto letter = word.empty() ? table.size() : static_cast<std::size_t>((word[0] | 0x20) - 'a');
  if (letter >= starts.size() - 1)
    return Keyword::none;
  for (std::size_t i = starts[letter]; i < starts[letter + 1]; ++i)
    if (sameName(table[i].word, word))
      return table[i].keyword;
  return Keyword::none;
}

std::string_view spelling(Keyword keyword) {
  return entry(keyword).word;
}

bool isReserved(Keyword keyword) {
  return entry(keyword).isReserved;
}

}  // namespace AppleScript
