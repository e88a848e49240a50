#pragma once

#include <map>

#include "Platform/Bundle.h"

namespace Platform::Linux {

/// The directory that the running executable lies in, with its `Info.ini`:
///
///     [Bundle]
///     Identifier=com.example.Plugin
///     Name=Plugin
///     Version=1.0
///
/// A file that is missing or can't be read is an empty one.
class LinuxBundle : public Bundle {
 public:
  /// The bundle of the running executable, links to it resolved.
  LinuxBundle();
  /// The bundle in this directory.
  explicit LinuxBundle(std::filesystem::path path);

  [[nodiscard]] std::filesystem::path path() const override { return path_; }
  [[nodiscard]] std::optional<std::string> identifier() const override { return value("Identifier"); }
  [[nodiscard]] std::optional<std::string> version() const { return value("Version"); }

 private:
  [[nodiscard]] std::optional<std::string> value(const std::string& key) const;

  std::filesystem::path path_;
  std::map<std::string, std::string> information_;
};

}  // namespace Platform::Linux
