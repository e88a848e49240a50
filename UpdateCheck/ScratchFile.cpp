#include "UpdateCheck/ScratchFile.h"

#include <cerrno>
#include <cstddef>

#include <glib.h>
#include <unistd.h>

#include "DesktopSupport/System/GLibHandles.h"

namespace UpdateCheck {

std::expected<ScratchFile, std::string> ScratchFile::create() {
  DesktopSupport::CharsHandle path;
  DesktopSupport::ErrorHandle error;
  const int file = g_file_open_tmp("update.XXXXXX", DesktopSupport::Out(path), DesktopSupport::Out(error));
  if (file < 0)
    return std::unexpected(std::string(error->message));
  unlink(path.get());
  return ScratchFile(file);
}

bool ScratchFile::append(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(file_->number(), bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR)
      continue;
    if (count < 0)
      return false;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

}  // namespace UpdateCheck
