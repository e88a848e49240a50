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

/// The state of one run of a script: its variables, `result`, the target of `tell`, and the trees of the applications
/// that were asked.
class Run {
 public:
  Run(ApplicationDirectory& applications, std::size_t variableCount);

  [[nodiscard]] ApplicationDirectory& applications() const { return applications_; }

  /// The variable in this slot; empty until it is set.
  [[nodiscard]] std::optional<Value>& variable(std::size_t slot) { return variables_[slot]; }

  /// `result`: the value of the last statement that had one.
  [[nodiscard]] std::optional<Value>& result() { return result_; }
  /// Records the value of the statement that was just run, or that it had none.
  void noteStatement(Value value);
  void noteStatementWithoutValue() { lastHadValue_ = false; }
  /// The value of the last statement, or `nullopt` if it had none. It must not share lists that the cycle breaker
  /// empties, so it is a deep copy if there are any. Throws -2706 if it contains itself.
  [[nodiscard]] std::optional<Value> takeValue();

  /// `it`: the target of the innermost `tell` block, or the object that a filter is testing.
  [[nodiscard]] const Value& target() const { return target_; }

  /// The root of the application's tree, which is fetched at the first call. Throws the application's error.
  [[nodiscard]] const ObjectPointer& root(Application& application);

  [[nodiscard]] const Value& textItemDelimiters() const { return delimiters_; }
  void setTextItemDelimiters(Value delimiters);
  /// The separator for lists that become text.
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

/// Makes a value the target for as long as it lives.
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
