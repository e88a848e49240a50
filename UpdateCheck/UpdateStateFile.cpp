#include "UpdateCheck/UpdateStateFile.h"

#include <cerrno>
#include <cstddef>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <glib.h>
#include <sys/file.h>

#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/GLibHandles.h"

namespace UpdateCheck {

namespace {

using DesktopSupport::FileDescriptor;

constexpr std::size_t maximumSize = 64UL * 1024;

std::string problemWith(const std::filesystem::path& path, int error) {
  return "cannot use " + path.string() + ": " + std::system_category().message(error);
}

}  // namespace

UpdateStateFile::UpdateStateFile(std::filesystem::path path, std::unique_ptr<FileDescriptor> lock)
    : path_(std::move(path)), lock_(std::move(lock)) {}

std::expected<std::optional<UpdateStateFile>, std::string> UpdateStateFile::lock(const std::filesystem::path& folder,
                                                                                 const std::string& identifier) {
  if (g_mkdir_with_parents(folder.c_str(), 0700) != 0)
    return std::unexpected(problemWith(folder, errno));
  const auto lockPath = folder / (identifier + ".updates.lock");
  auto lock = std::make_unique<FileDescriptor>(open(lockPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
  if (!lock->isOpen())
    return std::unexpected(problemWith(lockPath, errno));
  if (flock(lock->number(), LOCK_EX | LOCK_NB) == 0)
    return UpdateStateFile(folder / (identifier + ".updates"), std::move(lock));
  if (errno == EWOULDBLOCK)
    return std::nullopt;
  return std::unexpected(problemWith(lockPath, errno));
}

UpdateState UpdateStateFile::read() const {
  return UpdateState::parse(DesktopSupport::fileContents(path_, maximumSize).value_or(""));
}

std::expected<void, std::string> UpdateStateFile::write(const UpdateState& state) const {
  const std::string text = state.text();
  DesktopSupport::ErrorHandle error;
  if (g_file_set_contents(path_.c_str(), text.data(), static_cast<gssize>(text.size()), DesktopSupport::Out(error)) ==
      FALSE)
    return std::unexpected(std::string(error->message));
  return {};
}

}  // namespace UpdateCheck
