#pragma once

#include <expected>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "DeskloomSDK/JSON/DecodingError.h"

namespace DeskloomSDK {

/// Appends finished JSON text with every '/' written as "\/"; in such text it stands inside strings only.
void appendEscapingSlashes(std::string& output, std::string_view text);

/// The value as compact JSON text, UTF-8, every '/' written as "\/". Fails where a string is not valid UTF-8 or a
/// number not finite.
std::expected<std::string, EncodingError> encodeJSON(const nlohmann::json& value);

/// Reads JSON text. Fails where it is malformed, is not valid UTF-8, or has arrays and objects more than 512 deep in
/// one another.
std::expected<nlohmann::json, DecodingError> decodeJSON(std::string_view text);

}  // namespace DeskloomSDK
