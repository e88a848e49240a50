#include "ScriptableApps/Finder/MountedPlaces.h"

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/System/GLibHandles.h"

namespace ScriptableApps {

namespace {

bool answers(std::chrono::milliseconds patience) {
  const auto bus = DesktopSupport::SessionBus::connect();
  return bus && bus->call({.destination = "org.gtk.vfs.Daemon",
                           .path = "/org/gtk/vfs/mounttracker",
                           .interface = "org.freedesktop.DBus.Peer",
                           .name = "Ping"},
                          nullptr, G_VARIANT_TYPE("()"), patience);
}

}  // namespace

// GIO would start the virtual file systems' daemon, and wait long for one that hangs.
bool MountedPlaces::canBeAsked() {
  if (!canBeAsked_)
    canBeAsked_ = answers(patience_);
  return *canBeAsked_;
}

std::optional<std::string> MountedPlaces::pathOf(const std::string& uri) {
  if (!canBeAsked())
    return std::nullopt;
  const DesktopSupport::ObjectHandle<GFile> place(g_file_new_for_uri(uri.c_str()));
  const DesktopSupport::CharsHandle path(g_file_get_path(place.get()));
  return path ? std::optional<std::string>(path.get()) : std::nullopt;
}

}  // namespace ScriptableApps
