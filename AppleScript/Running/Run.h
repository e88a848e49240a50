#pragma once

#include <cstddef>
#include <optional>
#include <random>
#include <string_view>
#include <utility>
#include <vector>

#include "AppleScript/Running/TextParts.h"
#include "AppleScript/Values/Application.h"
#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/SharedContents.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// What one run of a script remembers: variables, `result`, what `tell` addresses, and the trees of the applications
/// that were asked.
class Run {
 public:
  Run(ApplicationDirectory& applications, std::size_t variableCount);

  [[nodiscard]] ApplicationDirectory& applications() const { return applications_; }

  /// The variable of this number; empty until it is set.
  [[nodiscard]] std::optional<Value>& variable(std::size_t slot) { return variables_[slot]; }

  /// `result`: the value of the last statement that had one.
  [[nodiscard]] std::optional<Value>& result() { return result_; }
  /// Notes the value of a statement that was just run, or that it had none.
  void noteStatement(Value value);
  void noteStatementWithoutValue() { lastHadValue_ = false; }
  /// The value of the last statement that was run, for the outside: free of lists that hold themselves. Throws -2706
  /// where it is one.
  [[nodiscard]] std::optional<Value> takeValue();

  /// `it`: what the innermost `tell` addresses, or what a filter looks at.
  [[nodiscard]] const Value& target() const { return target_; }

  /// The root of the application's tree, taken when first asked for. Throws what the application fails with.
  [[nodiscard]] const ObjectPointer& root(Application& application);

  [[nodiscard]] const Value& textItemDelimiters() const { return delimiters_; }
  void setTextItemDelimiters(Value delimiters);
  /// What joins the items of a list that becomes text.
  [[nodiscard]] std::string_view delimiter() const { return delimiter_.view(); }
  [[nodiscard]] TextParts& textParts() { return textParts_; }

  [[nodiscard]] CycleBreaker& cycles() { return cycles_; }

  /// A random index below `count`.
  [[nodiscard]] std::size_t randomIndex(std::size_t count);

 private:
  friend class TargetScope;

  ApplicationDirectory& applications_;
  CycleBreaker cycles_;
  std::vector<std::optional<Value>> variables_;
  std::optional<Value> result_;
  bool lastHadValue_ = false;
  Value target_ = Constant::me;
  std::vector<std::pair<Application*, Result<ObjectPointer>>> roots_;
  Value delimiters_ = List{""};
  Text delimiter_;
  TextParts textParts_;
  std::optional<std::minstd_rand> random_;
};

/// Addresses a value for as long as it lives.
class TargetScope {
 public:
  TargetScope(Run& run, Value target) : run_(run), outer_(std::exchange(run.target_, std::move(target))) {}
  ~TargetScope() { run_.target_ = std::move(outer_); }
  TargetScope(const TargetScope&) = delete;
  TargetScope& operator=(const TargetScope&) = delete;

 private:
  Run& run_;
  Value outer_;
};

}  // namespace AppleScript
