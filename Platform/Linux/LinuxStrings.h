#pragma once

#include <filesystem>
#include <mutex>
#include <string>

#include "Platform/Bundle.h"
#include "Platform/Strings.h"

namespace Platform::Linux {

/// The gettext catalogues in the bundle's `locale` directory, whose domain is the bundle's identifier.
class LinuxStrings : public Strings {
 public:
  explicit LinuxStrings(const Bundle& bundle);

  [[nodiscard]] std::string localized(std::string_view key, std::string_view comment) const override;

 private:
  void prepare() const;

  std::string domain_;
  std::filesystem::path catalogues_;
  mutable std::once_flag prepared_;
};

}  // namespace Platform::Linux
