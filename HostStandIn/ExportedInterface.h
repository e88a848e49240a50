#pragma once

#include <expected>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/System/GLibHandles.h"

namespace HostStandIn {

/// One D-Bus interface of an object of this process, exported until this is destroyed. Calls arrive on the main
/// context.
class ExportedInterface {
 public:
  /// The answer to a call.
  struct Answer {
    /// A tuple (none: an empty one), or the D-Bus error that the caller gets.
    std::expected<DesktopSupport::VariantHandle, DesktopSupport::BusError> reply = {};
    /// Done after the caller was answered, as it may take longer than a caller should wait.
    std::move_only_function<void()> afterwards = {};
  };
  /// Carries out the method of this name. The arguments have the types that the description gives them.
  using Handler = std::move_only_function<Answer(std::string_view method, GVariant* arguments)>;

  /// Exports the one interface that `description` (introspection XML) describes at `path`.
  ExportedInterface(const DesktopSupport::SessionBus& bus, const std::string& path, const std::string& description,
                    Handler handler);

 private:
  void take(const DesktopSupport::BusInvocation& invocation);

  Handler handler_;
  std::unique_ptr<DesktopSupport::ServedObject> object_;
};

}  // namespace HostStandIn
