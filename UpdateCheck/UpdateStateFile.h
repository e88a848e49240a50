#pragma once

#include <expected>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "DesktopSupport/System/FileDescriptor.h"
#include "UpdateCheck/UpdateState.h"

namespace UpdateCheck {

/// The file `<identifier>.updates` that keeps a plug-in's state, locked against the plug-in's other checks for as long
/// as this lives. What is locked is a file beside it, `<identifier>.updates.lock`, since each write replaces the file.
class UpdateStateFile {
 public:
  /// Locks the plug-in's file in `folder`, which is made if needed. None where another check has it; does not wait.
  /// Fails with a clause for the log where the folder cannot be written to.
  static std::expected<std::optional<UpdateStateFile>, std::string> lock(const std::filesystem::path& folder,
                                                                         const std::string& identifier);

  /// What the file holds; an empty state where it is missing, damaged or too long to be one.
  [[nodiscard]] UpdateState read() const;

  /// Replaces the file, so that it is always a whole one. Fails with a clause for the log.
  [[nodiscard]] std::expected<void, std::string> write(const UpdateState& state) const;

 private:
  UpdateStateFile(std::filesystem::path path, std::unique_ptr<DesktopSupport::FileDescriptor> lock);

  std::filesystem::path path_;
  std::unique_ptr<DesktopSupport::FileDescriptor> lock_;
};

}  // namespace UpdateCheck
