#include "DeskloomSDK/DeskloomPluginURL.h"

#include <string_view>
#include <utility>

namespace DeskloomSDK {

namespace {

constexpr std::string_view launchScheme = "deskloomplugin";

std::optional<std::string> segmentBehindHost(const Platform::URL& url) {
  auto components = url.pathComponents();
  // The leading slash is a component of its own, so /ID counts as two.
  if (components.size() != 2)
    return std::nullopt;
  return std::move(components[1]);
}

}  // namespace

std::optional<DeskloomPluginURL> DeskloomPluginURL::parse(const Platform::URL& url) {
  if (url.scheme() != launchScheme)
    return std::nullopt;
  auto host = url.host();
  if (!host)
    return std::nullopt;
  return DeskloomPluginURL{std::string(launchScheme), std::move(*host), segmentBehindHost(url)};
}

}  // namespace DeskloomSDK
