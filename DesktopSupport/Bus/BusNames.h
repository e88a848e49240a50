#pragma once

#include <string_view>

namespace DesktopSupport {

/// Whether the text can be a name of a connection: a unique one such as :1.23, or a well-known one such as
/// com.example.Some-App.
bool isBusName(std::string_view text);
bool isUniqueBusName(std::string_view text);

/// Whether the text can be the name of an interface or of an error, such as com.example.Player.
bool isInterfaceName(std::string_view text);

/// Whether the text can be the name of a method or a signal.
bool isMemberName(std::string_view text);

/// Whether the text can be the types of values that D-Bus carries, such as "sa{sv}".
bool isBusSignature(std::string_view text);

}  // namespace DesktopSupport
