#pragma once

#include <memory>

#include <glib.h>

#include "DesktopSupport/GLibHandles.h"
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
  [[nodiscard]] std::optional<std::string> information(std::string_view key) const override {
    return value("Bundle", key);
  }

  /// The value of a key in a group of `Info.ini`; none where it is missing or empty.
  [[nodiscard]] std::optional<std::string> value(const char* group, std::string_view key) const;

 private:
  using KeyFileHandle = std::unique_ptr<GKeyFile, DesktopSupport::ReleasedBy<g_key_file_unref>>;

  std::filesystem::path path_;
  KeyFileHandle information_;
};

}  // namespace Platform::Linux
