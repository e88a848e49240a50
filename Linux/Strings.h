#pragma once

#include <filesystem>
#include <mutex>
#include <optional>
#include <string>

#include "Linux/MessageCatalogue.h"
#include "Platform/Bundle.h"
#include "Platform/Strings.h"

namespace Linux {

/// The catalogues in the bundle's `locale` directory, `<language>/LC_MESSAGES/<bundle identifier>.mo`: the first that
/// can be read in the order of the languages the user prefers (LANGUAGE, LC_ALL, LC_MESSAGES, LANG). The keys are the
/// English texts, so English needs no catalogue.
class Strings : public Platform::Strings {
 public:
  explicit Strings(const Platform::Bundle& bundle);

  [[nodiscard]] std::string localized(std::string_view key, std::string_view comment) const override;

 private:
  std::filesystem::path catalogues_;
  std::string fileName_;
  mutable std::once_flag searched_;
  mutable std::optional<MessageCatalogue> catalogue_;
};

}  // namespace Linux
