#pragma once

#include <vector>

#include "AppleScript/Values/Dictionary.h"
#include "ScriptableApps/SystemEvents/RunningApplications.h"

namespace ScriptableApps {

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

/// The classes `application`, `process` and `application process` with their properties and elements.
const AppleScript::Dictionary& systemEventsDictionary();

}  // namespace ScriptableApps
