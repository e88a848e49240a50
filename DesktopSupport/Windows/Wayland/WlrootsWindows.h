#pragma once

#include "DesktopSupport/Windows/Window.h"

namespace DesktopSupport {

/// The windows with their application ids and states, without their processes and their order. Fails if the compositor
/// does not offer the protocol or does not answer.
std::expected<WindowList, DesktopError> readWlrootsWindows(Compositor& compositor);

/// wlroots' compositors and their kin.
inline constexpr WindowSource wlrootsWindows{
    .server = DisplayServer::wayland, .feature = "zwlr_foreign_toplevel_manager_v1", .windows = readWlrootsWindows};

}  // namespace DesktopSupport
