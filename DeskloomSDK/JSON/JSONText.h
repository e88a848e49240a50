#pragma once

#include <expected>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

namespace DeskloomSDK {

/// Why a JSON text could not be read as a value (DecodingError).
struct DecodingError {
  /// What is wrong with the text.
  enum class Kind {
    /// A required key is missing.
    keyNotFound,
    /// A value has the wrong JSON type.
    typeMismatch,
    /// The text is not JSON, or a string is not one of those allowed.
    dataCorrupted,
  };

  /// What is wrong.
  Kind kind;
  /// The key whose value is wrong or missing; empty if the value as a whole is wrong.
  std::string key;
};

/// Why a value could not be written as JSON (EncodingError).
struct EncodingError {
  /// The encoder's message, in English, for a log.
  std::string reason;
};

/// Appends the text as a JSON string, every '/' written as "\/". Fails if it is not valid UTF-8.
std::expected<void, EncodingError> appendString(std::string& output, std::string_view text);

/// The value as compact JSON text, UTF-8, every '/' written as "\/". Fails if a string is not valid UTF-8 or a number
/// is not finite.
std::expected<std::string, EncodingError> encodeJSON(const nlohmann::json& value);

/// Reads JSON text. Fails if it is malformed, is not valid UTF-8, or has arrays and objects nested more than 512 deep.
std::expected<nlohmann::json, DecodingError> decodeJSON(std::string_view text);

}  // namespace DeskloomSDK
