#pragma once

#include <vector>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/References/ReferenceForms.h"
#include "AppleScript/Syntax/HeadParser.h"
#include "AppleScript/Syntax/ParseContext.h"

namespace AppleScript {

/// Reads references, `name of window 1's tab 2`, and the simple expressions that they may consist of.
class ReferenceParser {
 public:
  explicit ReferenceParser(ParseContext& context) : context_(context) {}

  /// A reference, or a simple expression where nothing is asked `of` it.
  [[nodiscard]] ExpressionPointer parse();

 private:
  /// What stands between two `of`s. Its links lead outwards from the base or, where that is null, from the part behind
  /// the next `of`.
  struct Part {
    ExpressionPointer base;
    std::vector<ReferenceLink> links;
  };

  [[nodiscard]] ExpressionPointer parseReference();
  [[nodiscard]] Part parsePart();
  bool acceptOf();
  [[nodiscard]] static ElementForm* findFilterable(std::vector<Part>& parts);
  void parseFilter(std::vector<Part>& parts);
  [[nodiscard]] static std::vector<ReferenceFormPointer> joined(std::vector<Part>& parts);

  ParseContext& context_;
};

}  // namespace AppleScript
