#include "DesktopSupport/System/FileContents.h"

#include <array>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "DesktopSupport/System/FileDescriptor.h"

namespace DesktopSupport {

namespace {

// The size that a regular file states, 0 for one in /proc. `nullopt` for any other kind of file.
std::optional<std::size_t> regularSize(const FileDescriptor& file) {
  struct stat facts = {};
  if (fstat(file.number(), &facts) != 0 || !S_ISREG(facts.st_mode))
    return std::nullopt;
  return static_cast<std::size_t>(facts.st_size);
}

ssize_t readSome(const FileDescriptor& file, char* bytes, std::size_t count) {
  ssize_t received = 0;
  do
    received = read(file.number(), bytes, count);
  while (received < 0 && errno == EINTR);
  return received;
}

}  // namespace

std::optional<std::string> fileContents(const std::filesystem::path& file, std::size_t maximumSize) {
  // Opening a pipe would wait for its writer without O_NONBLOCK.
  const FileDescriptor descriptor(open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
  const auto size = descriptor.isOpen() ? regularSize(descriptor) : std::nullopt;
  if (!size || *size > maximumSize)
    return std::nullopt;
  std::string contents;
  contents.reserve(*size);
  std::array<char, 16384> piece = {};
  while (const ssize_t received = readSome(descriptor, piece.data(), piece.size())) {
    if (received < 0 || contents.size() + static_cast<std::size_t>(received) > maximumSize)
      return std::nullopt;
    contents.append(piece.data(), static_cast<std::size_t>(received));
  }
  return contents;
}

}  // namespace DesktopSupport
