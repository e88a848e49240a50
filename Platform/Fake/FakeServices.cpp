#include "Platform/Fake/FakeServices.h"

namespace Platform::Fake {

std::optional<std::string> FakeBundle::information(std::string_view key) const {
  const auto found = entries.find(key);
  return found == entries.end() ? std::nullopt : std::optional(found->second);
}

std::string FakeStrings::localized(std::string_view key, std::string_view comment) const {
  comments.insert_or_assign(std::string(key), std::string(comment));
  const auto found = translations.find(key);
  return found == translations.end() ? std::string(key) : found->second;
}

}  // namespace Platform::Fake
