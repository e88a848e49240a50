#pragma once

#include <chrono>
#include <expected>
#include <memory>
#include <string>
#include <string_view>

#include "DesktopSupport/Bus/BusError.h"
#include "DesktopSupport/System/FileDescriptor.h"

namespace DesktopSupport {

/// A stream socket that is connected to the bus at `address`, the first that takes the connection if there are several:
/// unix:path=/run/user/1000/bus;unix:abstract=name. Fails with `notSupported` if an address is of another kind than
/// unix:, and with `noServer` if none takes the connection within `patience`.
std::expected<std::unique_ptr<FileDescriptor>, BusError> connectedBusSocket(std::string_view address,
                                                                            std::chrono::milliseconds patience);

/// What a client sends first, before its messages: that it is this process's user.
std::string busAuthentication();

}  // namespace DesktopSupport
