#pragma once

#include <span>
#include <string_view>

#include "AppleScript/Values/Dictionary.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// The classes of the language itself.
namespace BuiltInClasses {

inline constexpr ClassDescription item{"item", "items", {}};
inline constexpr ClassDescription text{"text", "text", {}};
inline constexpr ClassDescription character{"character", "characters", {}};
inline constexpr ClassDescription word{"word", "words", {}};
inline constexpr ClassDescription paragraph{"paragraph", "paragraphs", {}};
inline constexpr ClassDescription textItem{"text item", "text items", {}};
inline constexpr ClassDescription number{"number", "numbers", {}};
inline constexpr ClassDescription integer{"integer", "integers", {}};
inline constexpr ClassDescription real{"real", "reals", {}};
inline constexpr ClassDescription boolean{"boolean", "booleans", {}};
inline constexpr ClassDescription list{"list", "lists", {}};
inline constexpr ClassDescription record{"record", "records", {}};
inline constexpr ClassDescription file{"file", "files", {}};
inline constexpr ClassDescription alias{"alias", "aliases", {}};
inline constexpr ClassDescription classOfClasses{"class", "classes", {}};
inline constexpr ClassDescription constant{"constant", "constants", {}};
inline constexpr ClassDescription script{"script", "scripts", {}};
inline constexpr ClassDescription application{"application", "applications", {}};

}  // namespace BuiltInClasses

/// The class of `value`, that of the item for a reference to an item.
[[nodiscard]] const ClassDescription& classOf(const Value& value);

/// Whether `value` is of the class `description` or of one that belongs to it: a real is a `number`, everything an
/// `item`.
[[nodiscard]] bool isOfClass(const Value& value, const ClassDescription& description);

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
