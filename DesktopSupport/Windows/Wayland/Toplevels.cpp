#include "DesktopSupport/Windows/Wayland/Toplevels.h"

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <utility>

#include "DesktopSupport/Windows/Wayland/Compositor.h"
#include "DesktopSupport/Windows/Wayland/WaylandConnection.h"

namespace DesktopSupport {

void Toplevel::setApplicationID(const char* id) {
  window.applicationID = id;
  window.windowClass = id;
}

WindowList windowsOf(const Toplevels& toplevels) {
  std::unordered_map<const wl_proxy*, WindowID> ids;
  for (const Toplevel& toplevel : toplevels)
    ids.emplace(toplevel.object, ids.size() + 1);
  WindowList list;
  for (const Toplevel& toplevel : toplevels) {
    if (!toplevel.isTold || toplevel.isClosed)
      continue;
    Window& window = list.windows.emplace_back(toplevel.window);
    window.id = ids.at(toplevel.object);
    if (const auto parent = ids.find(toplevel.parent); parent != ids.end())
      window.transientFor = parent->second;
    if (toplevel.isActive)
      list.active = window.id;
  }
  return list;
}

wl_proxy* objectIn(const wl_argument& argument) {
  return reinterpret_cast<wl_proxy*>(argument.o);
}

std::expected<WindowList, DesktopError> readToplevels(Compositor& compositor, const wl_interface& manager,
                                                      ToplevelEvent tell) {
  const auto connected = compositor.connection();
  if (!connected)
    return std::unexpected(connected.error());
  WaylandConnection& connection = **connected;
  wl_proxy* const list = connection.bind(manager);
  if (list == nullptr)
    return std::unexpected(
        DesktopError{.message = std::string("The compositor does not offer ") + manager.name + ".", .isAbsent = true});

  constexpr std::uint32_t newToplevel = 0;
  // The connection may outlive this function, and then events still arrive.
  const auto toplevels = std::make_shared<Toplevels>();
  connection.listen(list, [&connection, toplevels, tell](std::uint32_t event, const wl_argument* arguments) {
    if (event != newToplevel)
      return;
    Toplevel& toplevel = toplevels->emplace_back(Toplevel{.object = objectIn(arguments[0])});
    connection.listen(toplevel.object, [toplevels, &toplevel, tell](std::uint32_t told, const wl_argument* about) {
      tell(toplevel, told, about);
    });
  });
  auto answer = connection.roundTrip();
  if (answer && !std::ranges::all_of(*toplevels, &Toplevel::isTold))
    answer = connection.roundTrip();
  if (!answer)
    return std::unexpected(std::move(answer.error()));
  return windowsOf(*toplevels);
}

}  // namespace DesktopSupport
