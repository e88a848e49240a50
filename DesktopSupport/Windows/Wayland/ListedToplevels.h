#pragma once

#include "DesktopSupport/Windows/Window.h"

namespace DesktopSupport {

/// The windows with their application ids only: neither states nor processes nor order are told. Fails if the
/// compositor does not offer the protocol or does not answer.
std::expected<WindowList, DesktopError> readListedToplevels(Compositor& compositor);

/// Compositors that list their windows by the common protocol.
inline constexpr WindowSource listedToplevels{
    .server = DisplayServer::wayland, .feature = "ext_foreign_toplevel_list_v1", .windows = readListedToplevels};

}  // namespace DesktopSupport
