#include "Platform/Linux/LinuxStrings.h"

#include <clocale>
#include <mutex>

#include <libintl.h>

namespace Platform::Linux {

LinuxStrings::LinuxStrings(const Bundle& bundle)
    : domain_(bundle.identifier().value_or("")), catalogues_(bundle.path() / "locale") {}

/// Loads the user's locale, which a launch that shows no text can do without.
void LinuxStrings::prepare() const {
  std::setlocale(LC_CTYPE, "");
  std::setlocale(LC_MESSAGES, "");
  bindtextdomain(domain_.c_str(), catalogues_.c_str());
  bind_textdomain_codeset(domain_.c_str(), "UTF-8");
}

std::string LinuxStrings::localized(std::string_view key, std::string_view /*comment*/) const {
  std::string text(key);
  if (domain_.empty() || text.empty())  // gettext answers the empty key with the catalogue's header
    return text;
  std::call_once(prepared_, [this] { prepare(); });
  return dgettext(domain_.c_str(), text.c_str());
}

}  // namespace Platform::Linux
