#pragma once

#include <string>
#include <string_view>

#include "Platform/Bundle.h"

namespace UpdateCheck {

/// What the user reads about an update, in the user's language.
class UpdateTexts {
 public:
  explicit UpdateTexts(const Platform::Strings& strings) : strings_(strings) {}

  [[nodiscard]] std::string summary(std::string_view name) const;
  [[nodiscard]] std::string body(std::string_view version) const;
  [[nodiscard]] std::string button() const;

 private:
  const Platform::Strings& strings_;
};

}  // namespace UpdateCheck
