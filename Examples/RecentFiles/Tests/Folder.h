#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

/// A new folder. Its destructor removes it with everything in it.
class Folder {
 public:
  Folder() {
    std::string name = std::filesystem::temp_directory_path() / "recent-files.XXXXXX";
    path_ = mkdtemp(name.data());
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() { std::filesystem::remove_all(path_); }

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  /// Writes a file into the folder; yields its path.
  [[nodiscard]] std::filesystem::path write(std::string_view name, std::string_view contents) const {
    std::ofstream(path_ / name) << contents;
    return path_ / name;
  }

 private:
  std::filesystem::path path_;
};
