#pragma once

#include <filesystem>
#include <string_view>

namespace TestSupport {

/// A new folder. The destructor removes it with its contents.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  /// Writes a file in the folder, makes the subfolders that it needs, and returns its path.
  std::filesystem::path write(const std::filesystem::path& file, std::string_view contents) const;

 private:
  std::filesystem::path path_;
};

}  // namespace TestSupport
