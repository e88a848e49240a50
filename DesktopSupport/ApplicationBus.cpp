#include "DesktopSupport/ApplicationBus.h"

#include <algorithm>

namespace DesktopSupport {

namespace {

GVariant* noPlatformData() {
  return g_variant_new("a{sv}", nullptr);
}

}  // namespace

bool isApplicationName(const std::string& text) {
  return g_dbus_is_name(text.c_str()) != FALSE && g_dbus_is_unique_name(text.c_str()) == FALSE;
}

std::string applicationObjectPath(std::string_view busName) {
  std::string path = "/" + std::string(busName);
  std::ranges::replace(path, '.', '/');
  std::ranges::replace(path, '-', '_');
  return path;
}

std::size_t urlsInOneOpen(std::span<const std::string> urls) {
  constexpr std::size_t longestArray = 64UL << 20;
  constexpr std::size_t lengthAndPadding = 8;
  std::size_t bytes = 0;
  std::size_t count = 0;
  for (const std::string& url : urls) {
    bytes += url.size() + lengthAndPadding;
    if (count > 0 && bytes > longestArray)
      break;
    ++count;
  }
  return count;
}

GVariant* openArguments(const std::vector<std::string_view>& urls) {
  GVariantBuilder texts;
  g_variant_builder_init(&texts, G_VARIANT_TYPE("as"));
  for (const std::string_view url : urls)
    if (g_utf8_validate_len(url.data(), url.size(), nullptr) != FALSE)
      g_variant_builder_add_value(&texts, g_variant_new_take_string(g_strndup(url.data(), url.size())));
  return g_variant_new("(as@a{sv})", &texts, noPlatformData());
}

GVariant* activateArguments() {
  return g_variant_new("(@a{sv})", noPlatformData());
}

}  // namespace DesktopSupport
