#pragma once

#include <optional>

#include "AppleScript/Values/Dictionary.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// Texts taken apart into words, paragraphs or text items. Remembers the text it took apart last, so that a loop over
/// `paragraph i of t` takes it apart once.
class TextParts {
 public:
  /// What separates the text items of a text.
  void setDelimiters(const List& delimiters);

  /// The elements of the class `part` (word, paragraph or text item) of `text`. The list is the cache's own and must
  /// not be changed.
  [[nodiscard]] const List& of(const Text& text, const ClassDescription& part);

 private:
  List delimiters_{""};
  Text text_;
  const ClassDescription* part_ = nullptr;
  List parts_;
};

}  // namespace AppleScript
