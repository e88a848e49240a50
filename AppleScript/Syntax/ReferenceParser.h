#pragma once

#include <vector>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/References/ReferenceForms.h"
#include "AppleScript/Syntax/HeadParser.h"
#include "AppleScript/Syntax/ParseContext.h"

namespace AppleScript {

/// Parses references, `name of window 1's tab 2`, and the simple expressions that they consist of.
class ReferenceParser {
 public:
  explicit ReferenceParser(ParseContext& context) : context_(context) {}

  /// Parses a reference, or a simple expression if there is no `of`.
  [[nodiscard]] ExpressionPointer parse();

 private:
  /// The part between two `of`s. Its links apply to the base or, if that is null, to the part after the next `of`.
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
