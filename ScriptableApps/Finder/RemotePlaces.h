#pragma once

#include <chrono>

#include "DesktopSupport/Bus/SessionBus.h"

namespace ScriptableApps {

/// Whether the desktop's virtual file systems have mounted a place whose folders are not in the file system, such as
/// one on the network: a file manager may then show it. True if they do not answer within `patience`. Starts nothing.
bool mayShowRemotePlaces(const DesktopSupport::SessionBus* bus, std::chrono::milliseconds patience);

/// The same for an answer of the virtual file systems, a variant of type "(a(sossssssbay(aya{sv})ay))".
bool listsRemotePlaces(GVariant* answer);

}  // namespace ScriptableApps
