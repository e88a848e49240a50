#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Values/Dictionary.h"

namespace AppleScript {

/// A command of an application with what it is given.
class CommandExpression : public Expression {
 public:
  using Labelled = std::pair<std::string_view, ExpressionPointer>;

  /// `direct` is null where nothing stands directly behind the command's name.
  CommandExpression(const CommandDescription& command, Application& application, ExpressionPointer direct,
                    std::vector<Labelled> labelled, SourceRange range);

  [[nodiscard]] bool isCommand() const override { return true; }

 private:
  [[nodiscard]] Value compute(Run& run) const override;
  [[nodiscard]] Arguments arguments(Run& run) const;
  void requireAllParameters() const;

  const CommandDescription& command_;
  Application& application_;
  ExpressionPointer direct_;
  std::vector<Labelled> labelled_;
};

}  // namespace AppleScript
