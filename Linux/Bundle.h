#pragma once

#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "DesktopSupport/System/MessageCatalogue.h"
#include "Platform/Bundle.h"

namespace Linux {

/// The directory of the running executable, with its `Info.ini`:
///
///     [Bundle]
///     Identifier=com.example.Plugin
///     Name=Plugin
///     Version=1.0
///
/// A missing file counts as empty. So does one that cannot be read, is not a regular file or is larger than 1 MiB, and
/// the system's log then says so.
class Bundle : public Platform::Bundle {
 public:
  /// The bundle of the running executable, links to it resolved.
  Bundle();
  /// The bundle in this directory.
  explicit Bundle(std::filesystem::path path);

  [[nodiscard]] std::filesystem::path path() const override { return path_; }
  [[nodiscard]] std::optional<std::string> information(std::string_view key) const override {
    return value("Bundle", key);
  }

  /// The value of a key in a group of `Info.ini`. `nullopt` if it is missing, empty or not UTF-8, or if a line up to
  /// the end of the group is broken.
  [[nodiscard]] std::optional<std::string> value(std::string_view group, std::string_view key) const;

 private:
  std::filesystem::path path_;
  /// The text of `Info.ini`.
  std::string information_;
};

/// The texts of the catalogues `<language>/LC_MESSAGES/<bundle identifier>.mo` in the bundle's folder `locale`.
class Strings : public Platform::Strings {
 public:
  explicit Strings(const Platform::Bundle& bundle);

  [[nodiscard]] std::string localized(std::string_view key, std::string_view comment) const override;

 private:
  std::filesystem::path folder_;
  std::string name_;
  mutable std::once_flag searched_;
  mutable std::optional<DesktopSupport::MessageCatalogue> catalogue_;
};

}  // namespace Linux
