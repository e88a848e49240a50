#include "HostStandIn/HostURL.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "DeskloomSDK/Resources/Resource.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "Platform/Text/PercentEncoding.h"

namespace HostStandIn {

namespace {

using DeskloomSDK::Resource;

constexpr std::string_view prefix = "deskloom://gleanery/";
constexpr std::size_t typeWidth = std::string_view("application").size();
// A longer name moves its own URL to the right, but no other.
constexpr std::size_t widestName = 40;

std::size_t width(std::string_view text) {
  const auto isCharacter = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; };
  return static_cast<std::size_t>(std::ranges::count_if(text, isCharacter));
}

void appendCell(std::string& line, std::string_view text, std::size_t cellWidth) {
  line += text;
  line.append(cellWidth - std::min(cellWidth, width(text)) + 2, ' ');
}

std::string table(const std::vector<Resource>& resources) {
  std::vector<std::string> names;
  std::size_t nameWidth = 0;
  for (const Resource& resource : resources) {
    names.push_back(DesktopSupport::printable(resource.name()));
    nameWidth = std::max(nameWidth, std::min(width(names.back()), widestName));
  }

  std::string lines;
  for (std::size_t row = 0; row < resources.size(); ++row) {
    appendCell(lines, rawValue(resources[row].type()), typeWidth);
    appendCell(lines, names[row], nameWidth);
    lines += resources[row].url().absoluteString() + '\n';
  }
  lines.pop_back();
  return lines;
}

}  // namespace

bool isHostURL(std::string_view text) {
  constexpr std::string_view scheme = "deskloom:";
  return DesktopSupport::lowerCase(text.substr(0, scheme.size())) == scheme && DesktopSupport::printable(text) == text;
}

std::expected<std::string, std::string> resourceTable(std::string_view url) {
  if (!url.starts_with(prefix))
    return std::unexpected("not a URL that adds resources");
  const auto resources = DeskloomSDK::decodeResources(Platform::percentDecoded(url.substr(prefix.size())));
  if (!resources)
    return std::unexpected("the payload is not a list of resources");
  if (resources->empty())
    return "(no resources)";
  return table(*resources);
}

}  // namespace HostStandIn
