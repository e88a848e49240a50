#pragma once

#include <memory>
#include <optional>

#include "AppleScript/Running/Run.h"
#include "AppleScript/Values/Application.h"
#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/ScriptError.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// What a reference leads to.
struct Selection {
  /// One value, or the list of many.
  Value value;
  /// Whether the value stands for many objects (`every window`), so that what is asked of it is asked of each.
  bool many = false;
};

/// A piece of a script that has a value. Evaluating throws script errors; they get this expression's place in the
/// source unless they already have one.
class Expression {
 public:
  explicit Expression(SourceRange range) : range_(range) {}
  virtual ~Expression() = default;
  Expression(const Expression&) = delete;
  Expression& operator=(const Expression&) = delete;

  [[nodiscard]] const SourceRange& range() const { return range_; }

  [[nodiscard]] Value evaluate(Run& run) const;
  /// The value passed through `coercion`, whose errors get this place too.
  template <typename Coercion>
  [[nodiscard]] auto evaluateAs(Run& run, Coercion coercion) const {
    return atThisPlace([&] { return coercion(evaluate(run)); });
  }
  /// The same for what a longer reference builds on.
  [[nodiscard]] Selection select(Run& run) const;
  /// Sets the variable, the item or the property that this expression names.
  void assign(Run& run, Value value) const;

  /// Whether `set` can name it.
  [[nodiscard]] virtual bool isAssignable() const { return false; }
  /// The value where it is at hand without evaluating anything.
  [[nodiscard]] virtual std::optional<Value> valueAtHand(Run& /*run*/) const { return std::nullopt; }
  /// The application whose words a `tell` block to this expression is read with; null where there is none.
  [[nodiscard]] virtual Application* addressedApplication() const { return nullptr; }
  /// Whether this is a command that may be without a result.
  [[nodiscard]] virtual bool isCommand() const { return false; }

 private:
  [[nodiscard]] virtual Value compute(Run& run) const = 0;
  [[nodiscard]] virtual Selection computeSelection(Run& run) const { return {compute(run)}; }
  virtual void store(Run& run, Value value) const;

  template <typename Work>
  auto atThisPlace(Work work) const {
    try {
      return work();
    } catch (Failure& failure) {
      if (failure.error.range.length == 0)
        failure.error.range = range_;
      throw;
    }
  }

  SourceRange range_;
};

using ExpressionPointer = std::unique_ptr<const Expression>;

}  // namespace AppleScript
