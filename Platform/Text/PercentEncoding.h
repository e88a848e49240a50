#pragma once

#include <string>
#include <string_view>

namespace Platform {

/// `text` with every byte outside the URL-path-allowed set (A to Z, a to z, 0 to 9 and - . _ ~ ! $ & ' ( ) * + , ; = :
/// @ /) replaced by its %XX escape in upper-case hexadecimal (addingPercentEncoding with urlPathAllowed). Never fails.
std::string percentEncodedPath(std::string_view text);

/// `text` with its %XX escapes replaced by the bytes they stand for. A '%' that begins no escape stays as it is.
std::string percentDecoded(std::string_view text);

}  // namespace Platform
