#pragma once

#include <string_view>

namespace AppleScript {

/// Whether `word` belongs to the language, so that no variable can be called so.
[[nodiscard]] bool isReservedWord(std::string_view word);

}  // namespace AppleScript
