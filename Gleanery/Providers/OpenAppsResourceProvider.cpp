#include "Gleanery/Providers/OpenAppsResourceProvider.h"

#include "Platform/Text/URL.h"

namespace Gleanery {

namespace {

constexpr const char* source =
    "    tell application \"System Events\"\n"
    "        set result to \"\"\n"
    "        \n"
    "        repeat with element in (get properties of every process where background only is false)\n"
    "            set result to ((result & (get name of element) & linefeed as string) & (get POSIX path of file of element) & linefeed as string)\n"
    "        end repeat\n"
    "    end tell";

}  // namespace

OpenAppsResourceProvider::OpenAppsResourceProvider() : BasicResourceProvider("apps", source) {}

std::expected<Resource, Platform::Error> OpenAppsResourceProvider::makeResource(std::string_view name,
                                                                                std::string_view location) const {
  return Resource(DeskloomSDK::ResourceType::application, std::string(name), Platform::URL::fileURL(location));
}

}  // namespace Gleanery
