#include <chrono>
#include <cstdlib>
#include <expected>
#include <memory>
#include <set>
#include <string>

#include "AppleScript/Values/Value.h"
#include "DesktopSupport/Bus/BusMessage.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/Windows/GNOMEShell/GNOMEShellWindows.h"
#include "DesktopSupport/Windows/KWin/KWinWindows.h"
#include "Fuzz/Target.h"
#include "ScriptableApps/Deskloom/DeskloomHost.h"
#include "ScriptableApps/Finder/OpenFolders.h"
#include "ScriptableApps/Finder/ReportedFolders.h"

namespace {

using DesktopSupport::BusMessage;
using DesktopSupport::VariantHandle;
using Fuzz::require;

bool isOfType(GVariant* reply, const char* type) {
  return g_variant_is_of_type(reply, G_VARIANT_TYPE(type)) != FALSE;
}

void requireFolder(const std::string& location) {
  ScriptableApps::MountedPlaces places(std::chrono::milliseconds(0));
  const auto path = ScriptableApps::pathAt(location, places);
  if (!path)
    return;
  const auto folder = ScriptableApps::folderWithPath(*path);
  if (!folder) {
    Fuzz::requireUTF8(folder.error());
    require(DesktopSupport::isDisplayable(folder.error()), "An error is one line.");
  } else {
    require(DesktopSupport::isDisplayable(folder->name) && DesktopSupport::isDisplayable(folder->path),
            "A folder's texts are lines.");
    require(folder->path.starts_with('/') && folder->path.ends_with('/'), "A folder's path is absolute.");
  }
}

void readFileManager(GVariant* properties) {
  const ScriptableApps::FileManager fileManager{.connection = ":1.1"};
  const auto windows = ScriptableApps::windowsIn(properties, fileManager);
  if (!windows)
    return;
  for (const auto& [name, locations, id] : *windows) {
    require(name.path.empty() || name.connection == fileManager.connection,
            "A window belongs to the connection that answered.");
    require(!id, "A file manager without windows on the screen has no place there.");
    Fuzz::requireUTF8(name.path);
    for (const std::string& location : locations) {
      Fuzz::requireUTF8(location);
      requireFolder(location);
    }
  }
}

void requireUTF8(const DesktopSupport::Window& window) {
  for (const std::string& text : {window.title, window.windowClass, window.instance, window.applicationID})
    Fuzz::requireUTF8(text);
}

void readKWinSearch(GVariant* results) {
  const auto ids = DesktopSupport::kwinWindowIDsIn(results);
  const std::set<std::string> different(ids.begin(), ids.end());
  require(different.size() == ids.size() && !different.contains(""), "Each window is found once.");
}

void readKWinWindow(GVariant* description) {
  const auto window = DesktopSupport::kwinWindowIn(description);
  if (window)
    requireUTF8(*window);
  else
    require(DesktopSupport::isDisplayable(window.error().message), "An error is one line.");
}

void readShell(GVariant* answer) {
  const auto list = DesktopSupport::gnomeShellWindowsIn(answer);
  if (!list) {
    require(DesktopSupport::isDisplayable(list.error().message), "An error is one line.");
    return;
  }
  require(list->windows.size() == list->stack.size(), "Each window has a place in the stack.");
  for (const DesktopSupport::Window& window : list->windows) {
    require(window.id != 0 && window.pid.value_or(1) > 0, "A window has an id, and a process if it is known.");
    requireUTF8(window);
  }
  for (const auto& [connection, path] : DesktopSupport::gnomeShellGTKWindowsIn(answer))
    Fuzz::requireUTF8(connection + path);
}

// Looks up locations without asking another process.
void leaveBus() {
  unsetenv("DBUS_SESSION_BUS_ADDRESS");
  unsetenv("XDG_RUNTIME_DIR");
}

void read(GVariant* reply) {
  if (isOfType(reply, "(bs)")) {
    const auto value = ScriptableApps::textOf(reply);
    Fuzz::requireUTF8(value.stringValue().value_or(""));
  } else if (isOfType(reply, "(b)")) {
    require(ScriptableApps::truthOf(reply).is<bool>(), "A truth value is true or false.");
  } else if (isOfType(reply, "(a{sv})")) {
    const VariantHandle properties(g_variant_get_child_value(reply, 0));
    readFileManager(properties.get());
    readKWinWindow(properties.get());
  } else if (isOfType(reply, "(a(sssida{sv}))")) {
    const VariantHandle results(g_variant_get_child_value(reply, 0));
    readKWinSearch(results.get());
  } else {
    readShell(reply);
  }
}

void readError(const BusMessage& message) {
  const auto error = DesktopSupport::errorIn(message);
  Fuzz::requireUTF8(error.name);
  Fuzz::requireUTF8(error.message);
}

/// What was read can be written, unless it has file handles, and is then read as the same.
void requireSame(const BusMessage& message) {
  const auto written = DesktopSupport::encoded(message);
  if (!written)
    return;
  const auto again = DesktopSupport::decodedMessage(*written);
  require(again.has_value(), "A message that was written can be read.");
  require(
      again && again->path == message.path && again->member == message.member && again->errorName == message.errorName,
      "A message keeps its texts.");
  require(again && g_variant_equal(again->arguments.get(), message.arguments.get()) != FALSE,
          "A message keeps its arguments.");
}

void readMessage(std::string_view bytes) {
  const auto message = DesktopSupport::decodedMessage(bytes);
  if (!message)
    return;
  requireSame(*message);
  if (message->type == BusMessage::Type::error)
    readError(*message);
  else
    read(message->arguments.get());
}

void readValue(const char* type, std::string_view bytes) {
  const DesktopSupport::BytesHandle copy(g_bytes_new(bytes.data(), bytes.size()));
  read(DesktopSupport::owned(g_variant_new_from_bytes(G_VARIANT_TYPE(type), copy.get(), /*trusted=*/FALSE)).get());
}

}  // namespace

// The input is an answer from a program on the bus: a whole D-Bus message, or a letter for a type and a value. GLib
// validates messages, so values that come without one can be damaged in more ways.
void Fuzz::run(std::string_view input) {
  leaveBus();
  if (input.empty())
    return;
  const std::string_view rest = input.substr(1);
  switch (input.front()) {
    case 't':
      readValue("(bs)", rest);
      break;
    case 'b':
      readValue("(b)", rest);
      break;
    case 'p':
      readValue("(a{sv})", rest);
      break;
    case 's':
      readValue("(a(sssida{sv}))", rest);
      break;
    case 'w':
      readValue("(uaa{sv})", rest);
      break;
    default:
      readMessage(input);
  }
}
