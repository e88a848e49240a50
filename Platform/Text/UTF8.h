#pragma once

#include <optional>
#include <string>

namespace Platform {

/// The UTF-8 bytes of a text, without lossy conversion (dataUsingEncoding:); none where the text is not Unicode
/// throughout.
std::optional<std::string> utf8Bytes(std::string text);

/// The text that these bytes are the UTF-8 form of (initWithData:encoding:); none where they are not valid UTF-8.
std::optional<std::string> stringFromUTF8(std::string bytes);

}  // namespace Platform
