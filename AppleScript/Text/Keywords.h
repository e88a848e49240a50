#pragma once

#include <cstdint>
#include <string_view>

namespace AppleScript {

/// A word of the grammar, in alphabetical order. The words of operators are in Syntax/OperatorPhrases.
enum class Keyword : std::uint8_t {
  none,
  back,
  beginning,
  by,
  considering,
  copy,
  count,
  eighth,
  else_,
  end,
  error,
  every,
  exists,
  exit,
  fifth,
  first,
  fourth,
  from,
  front,
  get,
  global,
  id,
  if_,
  ignoring,
  in,
  index,
  it,
  its,
  last,
  local,
  middle,
  my,
  named,
  ninth,
  not_,
  number,
  of,
  on,
  repeat,
  result,
  return_,
  returning,
  second,
  set,
  seventh,
  sixth,
  some,
  tell,
  tenth,
  the,
  then,
  third,
  through,
  thru,
  times,
  to,
  try_,
  until,
  where,
  while_,
  whose,
  with,
  without,
};

/// The keyword that `word` is, in upper or lower case; `none` if it is no keyword.
[[nodiscard]] Keyword keywordFrom(std::string_view word);

/// How scripts write `keyword`.
[[nodiscard]] std::string_view spelling(Keyword keyword);

/// Whether no variable can have this name. The other keywords mean something in some places only: `first window`.
[[nodiscard]] bool isReserved(Keyword keyword);

}  // namespace AppleScript
