#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Platform {

/// Whether the bytes are valid UTF-8.
bool isUTF8(std::string_view bytes);

/// The UTF-8 bytes of a text, without lossy conversion (dataUsingEncoding:); `nullopt` if any part of the text is not
/// Unicode.
std::optional<std::string> utf8Bytes(std::string text);

/// The text with these UTF-8 bytes (initWithData:encoding:); `nullopt` if they are not valid UTF-8.
std::optional<std::string> stringFromUTF8(std::string bytes);

}  // namespace Platform
