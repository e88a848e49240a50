#include "DesktopSupport/Bus/ApplicationBus.h"

#include <algorithm>
#include <utility>

#include "DesktopSupport/Bus/BusNames.h"
#include "DesktopSupport/System/Text.h"

namespace DesktopSupport {

namespace {

GVariant* orNone(GVariant* platformData) {
  return platformData != nullptr ? platformData : g_variant_new("a{sv}", nullptr);
}

/// A text that is UTF-8 as a D-Bus string, floating; the variant has the text's own bytes.
GVariant* stringOf(std::string text) {
  auto* const owned = new std::string(std::move(text));
  return g_variant_new_from_data(
      G_VARIANT_TYPE_STRING, owned->c_str(), owned->size() + 1, /*trusted=*/TRUE,
      [](gpointer string) { delete static_cast<std::string*>(string); }, owned);
}

}  // namespace

const char* const applicationIntrospection = R"(
  <node>
    <interface name="org.freedesktop.Application">
      <method name="Activate">
        <arg type="a{sv}" name="platform_data" direction="in"/>
      </method>
      <method name="Open">
        <arg type="as" name="uris" direction="in"/>
        <arg type="a{sv}" name="platform_data" direction="in"/>
      </method>
      <method name="ActivateAction">
        <arg type="s" name="action_name" direction="in"/>
        <arg type="av" name="parameter" direction="in"/>
        <arg type="a{sv}" name="platform_data" direction="in"/>
      </method>
    </interface>
  </node>)";

bool isApplicationName(const std::string& text) {
  return isBusName(text) && !isUniqueBusName(text);
}

std::string applicationObjectPath(std::string_view busName) {
  std::string path = "/" + std::string(busName);
  std::ranges::replace(path, '.', '/');
  std::ranges::replace(path, '-', '_');
  return path;
}

GVariant* openArguments(std::string url, GVariant* platformData) {
  GVariantBuilder urls;
  g_variant_builder_init(&urls, G_VARIANT_TYPE("as"));
  if (isUTF8(url))
    g_variant_builder_add_value(&urls, stringOf(std::move(url)));
  return g_variant_new("(as@a{sv})", &urls, orNone(platformData));
}

GVariant* activateArguments(GVariant* platformData) {
  return g_variant_new("(@a{sv})", orNone(platformData));
}

std::vector<std::string> openedURLs(GVariant* arguments) {
  std::vector<std::string> urls;
  const VariantHandle texts(g_variant_get_child_value(arguments, 0));
  GVariantIter iterator;
  g_variant_iter_init(&iterator, texts.get());
  const gchar* text = nullptr;
  while (g_variant_iter_next(&iterator, "&s", &text))
    urls.emplace_back(text);
  return urls;
}

}  // namespace DesktopSupport
