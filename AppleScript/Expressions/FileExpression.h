#pragma once

#include <utility>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Values/Coercions.h"

namespace AppleScript {

/// `POSIX file "…"`, `file "…"`, `alias "…"`.
class FileExpression : public Expression {
 public:
  FileExpression(ExpressionPointer path, SourceRange range) : Expression(range), path_(std::move(path)) {}

 private:
  [[nodiscard]] Value compute(Run& run) const override { return toFile(path_->evaluate(run)); }

  ExpressionPointer path_;
};

}  // namespace AppleScript
