#pragma once

#include <string>
#include <vector>

#include "Tests/Support/ChildProcess.h"

namespace TestSupport {

/// How a program shows its windows.
enum class WindowSystem { wayland, x11 };

/// Starts a program of the tests' own, with GTK 4, that has a window for each title. Its windows have this application
/// id, or this class under X. Waits until a Wayland compositor has put all of them on screen; windows under X may get
/// there a moment later. Throws if it takes too long. The program ends when its windows have been closed.
ChildProcess startGTKWindows(const std::string& applicationID, const std::vector<std::string>& titles,
                             WindowSystem windowSystem = WindowSystem::wayland);

/// Starts a terminal under X, with this title and the class XTerm. Does not wait for its window.
ChildProcess startXTerm(const std::string& title);

/// Starts an editor under Wayland, with Qt, whose window has the title "Untitled" and the application id featherpad.
/// Does not wait for its window.
ChildProcess startFeatherPad();

}  // namespace TestSupport
