#pragma once

#include <expected>
#include <filesystem>
#include <vector>

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/DesktopEntries/DesktopEntries.h"
#include "DesktopSupport/Processes/StartedApplications.h"
#include "DesktopSupport/Windows/Accessible/AccessibilityBus.h"
#include "DesktopSupport/Windows/Window.h"

namespace DesktopSupport {

/// The windows of the programs on the accessibility bus, and one window for each started application that is not there
/// and that the user can know of: one whose desktop entry is shown in menus and that does not start with the session.
WindowList joinedWindows(const std::vector<AccessibleProgram>& programs, const std::vector<StartedApplication>& started,
                         DesktopEntries& entries);

/// What can be known of GNOME Shell's windows without its extension: those of programs that support screen readers, and
/// applications that the Shell started, from the control group `slice`. The list is not complete and says how to
/// complete it. Fails with `isAbsent` if GNOME Shell does not run, and otherwise if nothing is known.
std::expected<WindowList, DesktopError> readAccessibleWindows(const SessionBus& bus,
                                                              const std::filesystem::path& slice = applicationSlice());

/// The same on the running session bus.
std::expected<WindowList, DesktopError> readAccessibleWindows();

/// GNOME Shell without the extension.
inline constexpr WindowSource accessibleWindows{.server = DisplayServer::wayland,
                                                .feature = "org.a11y.Bus",
                                                .windows = [](Compositor&) { return readAccessibleWindows(); }};

}  // namespace DesktopSupport
