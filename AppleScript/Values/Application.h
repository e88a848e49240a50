#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "AppleScript/Values/Dictionary.h"
#include "AppleScript/Values/ScriptError.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// A scriptable application: the target of `tell application "…"`.
class Application {
 public:
  virtual ~Application() = default;

  /// Its name in scripts.
  [[nodiscard]] virtual std::string_view name() const = 0;

  /// Its terminology, which is known without asking the running application.
  [[nodiscard]] virtual const Dictionary& dictionary() const = 0;

  /// Asks the running application what it has open, and yields the root of that tree. A run calls this at most once,
  /// when the script first reads a property or an element of the application, so a script sees one consistent snapshot.
  /// Fails with -600 if the application is not running; it is never started.
  [[nodiscard]] virtual Result<ObjectPointer> open() = 0;
};

/// The applications that scripts can reach.
class ApplicationDirectory {
 public:
  virtual ~ApplicationDirectory() = default;

  /// The application of this name, ignoring case, or null. The directory owns it.
  [[nodiscard]] virtual Application* find(std::string_view name) = 0;
};

/// The arguments that a script gives to a command.
class Arguments {
 public:
  Arguments() = default;
  explicit Arguments(Value direct) : direct_(std::move(direct)) {}

  [[nodiscard]] bool hasDirect() const { return direct_.has_value(); }
  /// The value of the direct parameter, which follows the command's name, or `missing value`.
  [[nodiscard]] const Value& direct() const;
  /// The value of the parameter `label`, or `missing value`.
  [[nodiscard]] const Value& labelled(std::string_view label) const;

  /// The same values coerced to text. Fail with -1701 if there is no such value, with -1700 if it cannot be coerced.
  [[nodiscard]] Result<std::string> directText() const;
  [[nodiscard]] Result<std::string> labelledText(std::string_view label) const;

  void setLabelled(std::string_view label, Value value) { labelled_.emplace_back(label, std::move(value)); }

 private:
  std::optional<Value> direct_;
  std::vector<std::pair<std::string, Value>> labelled_;
};

}  // namespace AppleScript
