#include "Gleanery/Providers/ChromeResourceProvider.h"

namespace Gleanery {

namespace {

constexpr const char* source =
    "    tell application \"Google Chrome\"\n"
    "        set result to \"\"\n"
    "        \n"
    "        repeat with x from 1 to (number of windows)\n"
    "            repeat with y from 1 to (get number of tabs of window x)\n"
    "                set result to ((result & (get title of tab y of window x) & linefeed as string) & (get URL of tab y of window x) & linefeed as string)\n"
    "            end repeat\n"
    "        end repeat\n"
    "    end tell\n";

}  // namespace

ChromeResourceProvider::ChromeResourceProvider() : BasicResourceProvider("chrome", source) {}

std::expected<Resource, Platform::Error> ChromeResourceProvider::makeResource(std::string_view name,
                                                                              std::string_view location) const {
  return tabResource(name, location);
}

}  // namespace Gleanery
