#pragma once

#include <filesystem>
#include <string_view>

namespace TestSupport {

/// A fresh folder that is removed with all that is in it at the end of its scope.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  /// Writes a file below the folder, making the folders that it needs; yields its path.
  std::filesystem::path write(const std::filesystem::path& file, std::string_view contents) const;

 private:
  std::filesystem::path path_;
};

}  // namespace TestSupport
