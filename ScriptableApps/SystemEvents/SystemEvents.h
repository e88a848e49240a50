#pragma once

#include <vector>

#include "AppleScript/Values/Application.h"
#include "AppleScript/Values/Dictionary.h"
#include "ScriptableApps/SystemEvents/RunningApplications.h"

namespace ScriptableApps {

/// "System Events": the applications that show windows on the desktop, as its processes. They are read from the X
/// server that DISPLAY names.
class SystemEvents : public AppleScript::Application {
 public:
  [[nodiscard]] std::string_view name() const override;
  /// The classes `application`, `process` and `application process` with their properties and elements.
  [[nodiscard]] const AppleScript::Dictionary& dictionary() const override;

  /// Yields a `SystemEventsRoot`. Logs each application that it leaves out. Fails with -600 if there is no desktop to
  /// ask: no X server, no window manager, or one that does not list windows.
  [[nodiscard]] AppleScript::Result<AppleScript::ObjectPointer> open() override;
};

/// A process of System Events: an application that shows windows.
class ProcessObject : public AppleScript::Object {
 public:
  explicit ProcessObject(RunningApplication application) : application_(std::move(application)) {}

  [[nodiscard]] const AppleScript::ClassDescription& classDescription() const override;
  [[nodiscard]] const RunningApplication& application() const { return application_; }

 private:
  RunningApplication application_;
};

/// System Events itself, with its processes.
class SystemEventsRoot : public AppleScript::Object {
 public:
  explicit SystemEventsRoot(std::vector<RunningApplication> applications);

  [[nodiscard]] const AppleScript::ClassDescription& classDescription() const override;
  [[nodiscard]] const std::vector<ProcessObject>& processes() const { return processes_; }

 private:
  std::vector<ProcessObject> processes_;
};

}  // namespace ScriptableApps
