#pragma once

#include <expected>
#include <memory>
#include <string>
#include <string_view>

#include "DesktopSupport/System/FileDescriptor.h"
#include "UpdateCheck/MappedFile.h"

namespace UpdateCheck {

/// A file without a name in the folder for temporary files. It is gone with its owner, however that ends.
class ScratchFile {
 public:
  /// Makes an empty one. Fails with a clause for the log.
  static std::expected<ScratchFile, std::string> create();

  /// Writes at its end. False where that isn't possible, as on a disk that is full.
  [[nodiscard]] bool append(std::string_view bytes);

  /// What has been written so far.
  [[nodiscard]] std::expected<MappedFile, std::string> contents() const { return MappedFile::map(file_->number()); }

 private:
  explicit ScratchFile(int file) : file_(std::make_unique<DesktopSupport::FileDescriptor>(file)) {}

  std::unique_ptr<DesktopSupport::FileDescriptor> file_;
};

}  // namespace UpdateCheck
