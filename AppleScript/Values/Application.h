#pragma once

#include <memory>
#include <string_view>

#include "AppleScript/Values/Dictionary.h"
#include "AppleScript/Values/Object.h"
#include "AppleScript/Values/ScriptError.h"

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

}  // namespace AppleScript
