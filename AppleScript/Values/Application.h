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

/// A scriptable application: what `tell application "…"` reaches.
class Application {
 public:
  virtual ~Application() = default;

  /// The name that scripts call it by.
  [[nodiscard]] virtual std::string_view name() const = 0;

  /// Its terminology; known without asking the running application.
  [[nodiscard]] virtual const Dictionary& dictionary() const = 0;

  /// Asks the running application what it has open and yields the root of that tree. The interpreter calls this at most
  /// once in a run, the first time the script reads a property or an element of the application, so a script sees one
  /// consistent moment. Fails with -600 where the application is not running; nothing is started to be asked.
  [[nodiscard]] virtual Result<ObjectPointer> open() = 0;
};

/// The applications that scripts can reach.
class ApplicationDirectory {
 public:
  virtual ~ApplicationDirectory() = default;

  /// The application of this name, compared without regard to case; none where there is no such application. The
  /// directory keeps the application for as long as it lives itself.
  [[nodiscard]] virtual Application* find(std::string_view name) = 0;
};

/// What a script gave to a command.
class Arguments {
 public:
  Arguments() = default;
  explicit Arguments(Value direct) : direct_(std::move(direct)) {}

  [[nodiscard]] bool hasDirect() const { return direct_.has_value(); }
  /// The value directly behind the command's name; `missing value` where there is none.
  [[nodiscard]] const Value& direct() const;
  /// The value behind `label`; `missing value` where there is none.
  [[nodiscard]] const Value& labelled(std::string_view label) const;

  /// The same values coerced to text. Fail with -1701 where there is no such value, with -1700 where it has no text
  /// form.
  [[nodiscard]] Result<std::string> directText() const;
  [[nodiscard]] Result<std::string> labelledText(std::string_view label) const;

  void setLabelled(std::string_view label, Value value) { labelled_.emplace_back(label, std::move(value)); }

 private:
  std::optional<Value> direct_;
  std::vector<std::pair<std::string, Value>> labelled_;
};

}  // namespace AppleScript
