#pragma once

#include <string>

namespace DeskloomSDK {

/// Why a JSON text could not be read as a value (DecodingError).
struct DecodingError {
  /// What is wrong with the text.
  enum class Kind {
    /// A key that must be there is not.
    keyNotFound,
    /// A value is of another JSON type than it must be.
    typeMismatch,
    /// The text is no JSON, or a string is none of those allowed.
    dataCorrupted,
  };

  /// What is wrong.
  Kind kind;
  /// The key that is to blame; empty where it is the value as a whole.
  std::string key;
};

/// A value could not be written as JSON (EncodingError).
struct EncodingError {
  /// What the encoder says, in English, for a log.
  std::string reason;
};

}  // namespace DeskloomSDK
