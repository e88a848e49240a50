#include "DesktopSupport/Bus/BusDaemon.h"

#include <utility>

namespace DesktopSupport {

BusMethod busDaemonMethod(std::string name) {
  return {.destination = "org.freedesktop.DBus",
          .path = "/org/freedesktop/DBus",
          .interface = "org.freedesktop.DBus",
          .name = std::move(name)};
}

std::expected<bool, BusError> BusDaemon::requestName(const std::string& name) const {
  // The protocol's own numbers.
  constexpr guint32 doNotQueue = 4;
  constexpr guint32 primaryOwner = 1;
  const auto reply = bus_.call(busDaemonMethod("RequestName"), g_variant_new("(su)", name.c_str(), doNotQueue),
                               G_VARIANT_TYPE("(u)"), timeout_);
  if (!reply)
    return std::unexpected(reply.error());
  guint32 answer = 0;
  g_variant_get(reply->get(), "(u)", &answer);
  return answer == primaryOwner;
}

void BusDaemon::releaseName(const std::string& name) const {
  [[maybe_unused]] const auto reply =
      bus_.call(busDaemonMethod("ReleaseName"), g_variant_new("(s)", name.c_str()), nullptr, timeout_);
}

void BusDaemon::synchronize() const {
  // Messages keep their order, and so do their answers.
  [[maybe_unused]] const auto reply = bus_.call(busDaemonMethod("GetId"), nullptr, nullptr, timeout_);
}

std::optional<std::string> BusDaemon::ownerOf(const std::string& name) const {
  const auto reply =
      bus_.call(busDaemonMethod("GetNameOwner"), g_variant_new("(s)", name.c_str()), G_VARIANT_TYPE("(s)"), timeout_);
  if (!reply)
    return std::nullopt;
  const char* owner = nullptr;
  g_variant_get(reply->get(), "(&s)", &owner);
  return owner;
}

std::vector<std::string> BusDaemon::names() const {
  const auto reply = bus_.call(busDaemonMethod("ListNames"), nullptr, G_VARIANT_TYPE("(as)"), timeout_);
  if (!reply)
    return {};
  std::vector<std::string> names;
  const VariantHandle list(g_variant_get_child_value(reply->get(), 0));
  GVariantIter iterator;
  g_variant_iter_init(&iterator, list.get());
  const char* name = nullptr;
  while (g_variant_iter_next(&iterator, "&s", &name) != FALSE)
    names.emplace_back(name);
  return names;
}

std::optional<pid_t> BusDaemon::processOf(const std::string& name) const {
  const auto reply = bus_.call(busDaemonMethod("GetConnectionUnixProcessID"), g_variant_new("(s)", name.c_str()),
                               G_VARIANT_TYPE("(u)"), timeout_);
  if (!reply)
    return std::nullopt;
  guint32 process = 0;
  g_variant_get(reply->get(), "(u)", &process);
  return static_cast<pid_t>(process);
}

}  // namespace DesktopSupport
