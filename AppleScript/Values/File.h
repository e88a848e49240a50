#pragma once

#include <string>
#include <utility>

#include "AppleScript/Text/Text.h"

namespace AppleScript {

/// A file object or alias: a file by its POSIX path. Holds the path as it was given; nothing looks at the file itself.
class File {
 public:
  explicit File(std::string path) : path_(std::move(path)) {}
  explicit File(Text path) : path_(std::move(path)) {}

  /// The path in UTF-8, as `POSIX path of` yields it.
  [[nodiscard]] const Text& path() const { return path_; }

 private:
  Text path_;
};

}  // namespace AppleScript
