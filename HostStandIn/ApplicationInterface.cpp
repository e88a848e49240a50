#include "HostStandIn/ApplicationInterface.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "DesktopSupport/Bus/ApplicationBus.h"
#include "HostStandIn/HostURL.h"

namespace HostStandIn {

namespace {

DesktopSupport::BusError noHostURL() {
  return {.name = std::string(DesktopSupport::BusErrorName::invalidArguments),
          .message = "Only deskloom:// URLs can be opened."};
}

}  // namespace

ApplicationInterface::ApplicationInterface(const DesktopSupport::SessionBus& bus, URLHandler open)
    : exported_(
          bus, "/com/quillary/Deskloom", DesktopSupport::applicationIntrospection,
          [open = std::move(open)](std::string_view method, GVariant* arguments) mutable -> ExportedInterface::Answer {
            if (method != "Open")
              return {};
            std::vector<std::string> urls = DesktopSupport::openedURLs(arguments);
            if (!std::ranges::all_of(urls, isHostURL))
              return {.reply = std::unexpected(noHostURL())};
            return {.afterwards = [&open, urls = std::move(urls)] { std::ranges::for_each(urls, std::ref(open)); }};
          }) {}

}  // namespace HostStandIn
