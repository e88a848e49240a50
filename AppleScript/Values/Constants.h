#pragma once

#include <span>
#include <string_view>

#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// A phrase of the language that always means the same value.
struct ConstantPhrase {
  std::string_view phrase;
  Value value;
};

/// `true`, `linefeed`, `missing value`, `pi`, …
[[nodiscard]] std::span<const ConstantPhrase> constantPhrases();

/// How the language writes `constant`.
[[nodiscard]] std::string_view nameOf(Constant constant);

}  // namespace AppleScript
