#pragma once

#include <expected>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "DesktopSupport/Bus/SessionBus.h"
#include "HostStandIn/ExportedInterface.h"

namespace HostStandIn {

/// The host's org.freedesktop.Application on the bus, the door that URLs come in by. There is nothing to activate: what
/// is no Open call does nothing.
class ApplicationInterface {
 public:
  using URLHandler = std::move_only_function<void(const std::string& url)>;

  /// Hands `open` each URL of an Open call, in their order, once the caller has its answer. A call with anything that
  /// is no host URL in it fails with InvalidArgs and hands on none.
  static std::expected<ApplicationInterface, DesktopSupport::BusError> create(const DesktopSupport::SessionBus& bus,
                                                                              URLHandler open);

 private:
  explicit ApplicationInterface(std::unique_ptr<ExportedInterface> exported) : exported_(std::move(exported)) {}

  std::unique_ptr<ExportedInterface> exported_;
};

}  // namespace HostStandIn
