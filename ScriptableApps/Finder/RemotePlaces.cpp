#include "ScriptableApps/Finder/RemotePlaces.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "DesktopSupport/System/GLibHandles.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::VariantHandle;
namespace BusErrorName = DesktopSupport::BusErrorName;

constexpr const char* answerType = "(a(sossssssbay(aya{sv})ay))";

// What each desktop has, and what shows no folder under its own name.
constexpr auto ownTypes = std::to_array<std::string_view>({"burn", "computer", "network", "recent", "trash"});

bool isOwn(GVariant* mount) {
  constexpr gsize indexOfPlace = 10;
  const VariantHandle place(g_variant_get_child_value(mount, indexOfPlace));
  const VariantHandle properties(g_variant_get_child_value(place.get(), 1));
  const VariantHandle type(g_variant_lookup_value(properties.get(), "type", G_VARIANT_TYPE_BYTESTRING));
  return type && std::ranges::find(ownTypes, std::string_view(g_variant_get_bytestring(type.get()))) != ownTypes.end();
}

}  // namespace

bool listsRemotePlaces(GVariant* answer) {
  const VariantHandle mounts(g_variant_get_child_value(answer, 0));
  GVariantIter iterator;
  g_variant_iter_init(&iterator, mounts.get());
  while (const VariantHandle mount{g_variant_iter_next_value(&iterator)})
    if (!isOwn(mount.get()))
      return true;
  return false;
}

bool mayShowRemotePlaces(const DesktopSupport::SessionBus* bus, std::chrono::milliseconds patience) {
  if (bus == nullptr)
    return false;
  const auto answer = bus->call({.destination = "org.gtk.vfs.Daemon",
                                 .path = "/org/gtk/vfs/mounttracker",
                                 .interface = "org.gtk.vfs.MountTracker",
                                 .name = "ListMounts"},
                                nullptr, G_VARIANT_TYPE(answerType), patience);
  if (answer)
    return listsRemotePlaces(answer->get());
  return answer.error().name != BusErrorName::serviceUnknown && answer.error().name != BusErrorName::nameHasNoOwner;
}

}  // namespace ScriptableApps
