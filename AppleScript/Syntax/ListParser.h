#pragma once

#include <cstddef>
#include <string>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Syntax/ParseContext.h"

namespace AppleScript {

/// Reads what stands in braces: `{1, "a"}` and `{name:"x"}`.
class ListParser {
 public:
  explicit ListParser(ParseContext& context) : context_(context) {}

  /// The tokens begin with the opening brace.
  [[nodiscard]] ExpressionPointer parse();

 private:
  [[nodiscard]] ExpressionPointer parseList(std::size_t start);
  [[nodiscard]] ExpressionPointer parseRecord(std::size_t start);
  /// How many tokens spell a label, up to its colon; 0 where there is none.
  [[nodiscard]] std::size_t labelLength() const;
  [[nodiscard]] std::string takeLabel();

  ParseContext& context_;
};

}  // namespace AppleScript
