#include "UpdateCheck/FileTransfer.h"

#include <cerrno>
#include <cstddef>
#include <system_error>
#include <vector>

#include <fcntl.h>
#include <glib.h>
#include <sys/stat.h>
#include <unistd.h>

#include "DesktopSupport/System/FileDescriptor.h"
#include "DesktopSupport/System/GLibHandles.h"

namespace UpdateCheck {

namespace {

using DesktopSupport::CharsHandle;

std::unexpected<std::string> lastFailure() {
  return std::unexpected(std::system_category().message(errno));
}

/// The path that the URL names on this machine; none where it names another one.
CharsHandle localPath(const Platform::URL& url) {
  CharsHandle host;
  CharsHandle path(g_filename_from_uri(url.absoluteString().c_str(), DesktopSupport::Out(host), nullptr));
  const bool isLocal = !host || *host == '\0' || std::string_view(host.get()) == "localhost";
  return isLocal ? std::move(path) : nullptr;
}

}  // namespace

std::expected<void, std::string> FileTransfer::run(const Platform::URL& url) const {
  const CharsHandle path = localPath(url);
  if (!path)
    return std::unexpected("it is not a file of this machine");
  // Without O_NONBLOCK, opening a pipe waits for its writer.
  const DesktopSupport::FileDescriptor file(open(path.get(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
  struct stat facts = {};
  if (!file.isOpen() || fstat(file.number(), &facts) != 0)
    return lastFailure();
  if (!S_ISREG(facts.st_mode))
    return std::unexpected("it is not a regular file");
  return readAll(file.number());
}

std::expected<void, std::string> FileTransfer::readAll(int file) const {
  std::vector<char> piece(65536);
  while (const ssize_t count = read(file, piece.data(), piece.size())) {
    if (count < 0 && errno == EINTR)
      continue;
    if (count < 0)
      return lastFailure();
    if (!sink_({piece.data(), static_cast<std::size_t>(count)}))
      return std::unexpected("its contents cannot be kept");
  }
  return {};
}

}  // namespace UpdateCheck
