#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/References/ReferenceForms.h"

namespace AppleScript {

/// `name of every tab of window 1`: a base and the forms that lead on from it, the one next to the base first. One
/// expression for the whole chain, however long.
class ReferenceExpression : public Expression {
 public:
  /// A null `base` stands for `it`.
  ReferenceExpression(ExpressionPointer base, std::vector<ReferenceFormPointer> forms, SourceRange range);

  [[nodiscard]] bool isAssignable() const override { return forms_.back()->isAssignable(); }
  [[nodiscard]] Application* addressedApplication() const override;

 private:
  [[nodiscard]] Value compute(Run& run) const override { return computeSelection(run).value; }
  [[nodiscard]] Selection computeSelection(Run& run) const override { return follow(run, forms_.size()); }
  void store(Run& run, Value value) const override;

  /// A form in this reference, and the value that the reference set out from.
  struct Place {
    std::size_t form;
    const Value& origin;
  };

  /// What the first `count` forms lead to.
  [[nodiscard]] Selection follow(Run& run, std::size_t count) const;
  [[nodiscard]] Value findInEach(Run& run, Place place, const List& containers) const;
  [[nodiscard]] Value findIn(Run& run, Place place, const Value& container) const;
  [[noreturn]] void failToFind(Run& run, Place place, std::string what, const Value& container) const;
  /// How an error message ends that is about something `of` it.
  [[nodiscard]] std::string describeOrigin(const Value& origin) const;

  ExpressionPointer base_;
  std::vector<ReferenceFormPointer> forms_;
};

}  // namespace AppleScript
