#include "Linux/Strings.h"

#include <cstdlib>
#include <mutex>
#include <string_view>

#include <glib.h>

namespace Linux {

namespace {

/// Whether a locale, such as "en_GB.UTF-8", has texts in English.
bool isEnglish(std::string_view locale) {
  const auto language = locale.substr(0, locale.find_first_of("_.@"));
  return language == "en" || language == "C" || language == "POSIX";
}

/// The locale of messages, which the user's list of languages (LANGUAGE) refines.
std::string_view messageLocale() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
    if (const char* value = std::getenv(variable); value != nullptr && *value != '\0')
      return value;
  return "C";
}

std::optional<MessageCatalogue> preferredCatalogue(const std::filesystem::path& catalogues,
                                                   const std::string& fileName) {
  // Where that locale has no language, there is nothing to refine.
  if (const auto locale = messageLocale(); locale == "C" || locale == "POSIX")
    return std::nullopt;
  for (const char* const* locale = g_get_language_names_with_category("LC_MESSAGES"); *locale != nullptr; ++locale) {
    if (isEnglish(*locale))
      break;
    if (auto catalogue = MessageCatalogue::read(catalogues / *locale / "LC_MESSAGES" / fileName))
      return catalogue;
  }
  return std::nullopt;
}

}  // namespace

Strings::Strings(const Platform::Bundle& bundle)
    : catalogues_(bundle.path() / "locale"), fileName_(bundle.identifier().value_or("") + ".mo") {}

std::string Strings::localized(std::string_view key, std::string_view /*comment*/) const {
  // Not before the first text: most launches show none.
  std::call_once(searched_, [this] { catalogue_ = preferredCatalogue(catalogues_, fileName_); });
  const auto translation = catalogue_ ? catalogue_->translation(key) : std::nullopt;
  return translation.value_or(std::string(key));
}

}  // namespace Linux
