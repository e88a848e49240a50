#include "HostStandIn/ApplicationInterface.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "HostStandIn/HostURL.h"

namespace HostStandIn {

namespace {

const char* const description = R"(
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

std::vector<std::string> openedURLs(GVariant* arguments) {
  const DesktopSupport::VariantHandle list(g_variant_get_child_value(arguments, 0));
  std::vector<std::string> urls(g_variant_n_children(list.get()));
  for (gsize index = 0; index < urls.size(); ++index) {
    const DesktopSupport::VariantHandle url(g_variant_get_child_value(list.get(), index));
    urls[index] = g_variant_get_string(url.get(), nullptr);
  }
  return urls;
}

DesktopSupport::BusError noHostURL() {
  return {.name = std::string(DesktopSupport::BusErrorName::invalidArguments),
          .message = "Only deskloom:// URLs can be opened."};
}

}  // namespace

std::expected<ApplicationInterface, DesktopSupport::BusError> ApplicationInterface::create(
    const DesktopSupport::SessionBus& bus, URLHandler open) {
  auto handle = [open = std::move(open)](std::string_view method,
                                         GVariant* arguments) mutable -> ExportedInterface::Answer {
    if (method != "Open")
      return {};
    std::vector<std::string> urls = openedURLs(arguments);
    if (!std::ranges::all_of(urls, isHostURL))
      return {.reply = std::unexpected(noHostURL())};
    return {.afterwards = [&open, urls = std::move(urls)] { std::ranges::for_each(urls, std::ref(open)); }};
  };
  auto exported = ExportedInterface::create(bus, "/com/quillary/Deskloom", description, std::move(handle));
  if (!exported)
    return std::unexpected(exported.error());
  return ApplicationInterface(std::move(*exported));
}

}  // namespace HostStandIn
