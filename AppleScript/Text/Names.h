#pragma once

#include <string>
#include <string_view>

namespace AppleScript {

/// Whether two identifiers or phrases are the same to the language, which ignores the case of their ASCII letters.
[[nodiscard]] bool sameName(std::string_view left, std::string_view right);

/// `name` with its ASCII letters in lower case.
[[nodiscard]] std::string lowerCase(std::string_view name);

}  // namespace AppleScript
