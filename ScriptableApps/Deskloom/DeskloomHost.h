#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "AppleScript/Values/ScriptError.h"
#include "AppleScript/Values/Value.h"
#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/System/GLibHandles.h"

namespace ScriptableApps {

/// The running host, called through its D-Bus interface com.quillary.Deskloom.Scripting. It is never started.
class DeskloomHost {
 public:
  explicit DeskloomHost(std::chrono::milliseconds patience) : patience_(patience) {}

  /// Calls a method that takes strings only. Yields the tuple that it answers, which must be of type `replyType`
  /// ("(bs)", or "r" for any tuple). Fails with -600 if the host is not running or quits before it answers, -1712 if it
  /// does not answer in time, -1723 if access is denied, and -2700 if a text cannot be sent or the host answers with an
  /// error, whose message is passed on.
  [[nodiscard]] AppleScript::Result<DesktopSupport::VariantHandle> call(const std::string& method,
                                                                        const std::vector<std::string>& texts,
                                                                        const char* replyType) const;

 private:
  std::chrono::milliseconds patience_;
};

/// The text in an answer of type "(bs)", which is whether there is one, and the text; `missing value` if there is none.
AppleScript::Value textOf(GVariant* reply);

/// The truth value in an answer of type "(b)".
AppleScript::Value truthOf(GVariant* reply);

}  // namespace ScriptableApps
