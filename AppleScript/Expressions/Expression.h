#pragma once

#include <memory>
#include <optional>

#include "AppleScript/Running/Run.h"
#include "AppleScript/Values/Application.h"
#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/ScriptError.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// What a reference yields.
struct Selection {
  /// One value, or a list of values if `many` is set.
  Value value;
  /// Whether the value stands for many objects (`every window`). If so, `name of` it is the list of their names.
  bool many = false;
};

/// A part of a script that has a value. Evaluating it can throw a `Failure`, which gets this expression's range in the
/// source unless it already has one.
class Expression {
 public:
  explicit Expression(SourceRange range) : range_(range) {}
  virtual ~Expression() = default;
  Expression(const Expression&) = delete;
  Expression& operator=(const Expression&) = delete;

  [[nodiscard]] const SourceRange& range() const { return range_; }

  [[nodiscard]] Value evaluate(Run& run) const;
  /// The value converted by `coercion`. Its errors get this expression's range too.
  template <typename Coercion>
  [[nodiscard]] auto evaluateAs(Run& run, Coercion coercion) const {
    return atThisPlace([&] { return coercion(evaluate(run)); });
  }
  /// Evaluates this expression as the base of a reference.
  [[nodiscard]] Selection select(Run& run) const;
  /// Sets the variable, item or property that this expression names.
  void assign(Run& run, Value value) const;

  /// Whether this can be the target of `set`.
  [[nodiscard]] virtual bool isAssignable() const { return false; }
  /// The value if it is known without evaluating anything.
  [[nodiscard]] virtual std::optional<Value> valueAtHand(Run& /*run*/) const { return std::nullopt; }
  /// The application whose terminology applies inside a `tell` block to this expression; null if there is none.
  [[nodiscard]] virtual Application* addressedApplication() const { return nullptr; }
  /// Whether this is a command, which may have no result.
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
