#include "Gleanery/Providers/FinderResourceProvider.h"

#include "Platform/Text/URL.h"

namespace Gleanery {

namespace {

constexpr const char* source =
    "    tell application \"Finder\"\n"
    "        set result to \"\"\n"
    "        \n"
    "        repeat with x from 1 to (number of windows)\n"
    "            set result to ((result & (get name of window x) & linefeed as string) & (get POSIX path of (target of window x as alias)) & linefeed as string)\n"
    "        end repeat\n"
    "    end tell";

}  // namespace

FinderResourceProvider::FinderResourceProvider() : BasicResourceProvider("finder", source) {}

std::expected<Resource, Platform::Error> FinderResourceProvider::makeResource(std::string_view name,
                                                                              std::string_view location) const {
  return Resource(DeskloomSDK::ResourceType::folder, std::string(name), Platform::URL::fileURL(location));
}

}  // namespace Gleanery
