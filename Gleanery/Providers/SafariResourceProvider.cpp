#include "Gleanery/Providers/SafariResourceProvider.h"

namespace Gleanery {

namespace {

constexpr const char* source =
    "    set result to \"\"\n"
    "\n"
    "    tell application \"Safari\"\n"
    "        repeat with x from 1 to (number of windows)\n"
    "            set subres to result\n"
    "            repeat with y from 1 to (number of tabs of window x)\n"
    "                set subres to ((subres & (get name of tab y of window x) & linefeed as string) & (get URL of tab y of window x) & linefeed as string)\n"
    "            end repeat\n"
    "            \n"
    "            set result to subres\n"
    "        end repeat\n"
    "    end tell";

}  // namespace

SafariResourceProvider::SafariResourceProvider() : BasicResourceProvider("safari", source) {}

std::expected<Resource, Platform::Error> SafariResourceProvider::makeResource(std::string_view name,
                                                                              std::string_view location) const {
  return tabResource(name, location);
}

}  // namespace Gleanery
