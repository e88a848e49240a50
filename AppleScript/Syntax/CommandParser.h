#pragma once

#include "AppleScript/Expressions/CommandExpression.h"
#include "AppleScript/Syntax/ParseContext.h"

namespace AppleScript {

/// Reads a command of an application and its parameters: `set config "T" action "A"`.
class CommandParser {
 public:
  explicit CommandParser(ParseContext& context) : context_(context) {}

  /// The tokens at the place reached spell `term`, the command's name.
  [[nodiscard]] ExpressionPointer parse(const Term& term);

 private:
  [[nodiscard]] ExpressionPointer parseDirect(const CommandDescription& command);
  [[nodiscard]] std::vector<CommandExpression::Labelled> parseLabelled();
  [[nodiscard]] bool isValueAhead() const;

  ParseContext& context_;
};

}  // namespace AppleScript
