#pragma once

#include <optional>

#include "AppleScript/Values/Dictionary.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// Splits texts into words, paragraphs or text items. Keeps the last result, so a loop over `paragraph i of t` splits
/// the text once.
class TextParts {
 public:
  /// Sets the separators of text items.
  void setDelimiters(const List& delimiters);

  /// The elements of the class `part` (word, paragraph or text item) of `text`. The list is cached and must not be
  /// changed.
  [[nodiscard]] const List& of(const Text& text, const ClassDescription& part);

 private:
  List delimiters_{""};
  Text text_;
  const ClassDescription* part_ = nullptr;
  List parts_;
};

}  // namespace AppleScript
