#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "AppleScript/Values/ScriptError.h"
#include "AppleScript/Values/Value.h"
#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/System/GLibHandles.h"

namespace ScriptableApps {

/// The running host as its D-Bus interface com.quillary.Deskloom.Scripting shows it. The host is not started to be
/// asked.
class DeskloomHost {
 public:
  explicit DeskloomHost(std::chrono::milliseconds patience) : patience_(patience) {}

  /// Calls a method, all of whose parameters are strings; yields the tuple answered, which must be of type `replyType`
  /// ("(bs)"; "r" for any). Fails with -600 where the host does not run or quits meanwhile, -1712 where it stays silent
  /// for too long, -1723 where it may not be asked, and with -2700 where a text cannot be sent or the host answers with
  /// an error, whose message is passed on.
  [[nodiscard]] AppleScript::Result<DesktopSupport::VariantHandle> call(const std::string& method,
                                                                        const std::vector<std::string>& texts,
                                                                        const char* replyType) const;

 private:
  std::chrono::milliseconds patience_;
};

/// The text that the host answers with a tuple of type "(bs)": whether there is one, and the text. `missing value` if
/// there is none.
AppleScript::Value textOf(GVariant* reply);

/// The truth value that the host answers with a tuple of type "(b)".
AppleScript::Value truthOf(GVariant* reply);

}  // namespace ScriptableApps
