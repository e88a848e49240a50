#include "Platform/Fake/FakeServices.h"

namespace Platform::Fake {

std::string FakeStrings::localized(std::string_view key, std::string_view comment) const {
  comments.insert_or_assign(std::string(key), std::string(comment));
  const auto found = translations.find(key);
  return found == translations.end() ? std::string(key) : found->second;
}

}  // namespace Platform::Fake
