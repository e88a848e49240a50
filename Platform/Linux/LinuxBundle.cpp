#include "Platform/Linux/LinuxBundle.h"

#include <system_error>
#include <utility>

namespace Platform::Linux {

namespace {

std::filesystem::path executableDirectory() {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
}

}  // namespace

LinuxBundle::LinuxBundle() : LinuxBundle(executableDirectory()) {}

LinuxBundle::LinuxBundle(std::filesystem::path path) : path_(std::move(path)), information_(g_key_file_new()) {
  if (g_key_file_load_from_file(information_.get(), (path_ / "Info.ini").c_str(), G_KEY_FILE_NONE, nullptr) == FALSE)
    information_.reset(g_key_file_new());  // what stands in front of a broken line has been read by then
}

std::optional<std::string> LinuxBundle::value(const char* group, std::string_view key) const {
  const DesktopSupport::CharsHandle text(
      g_key_file_get_string(information_.get(), group, std::string(key).c_str(), nullptr));
  if (!text || *text == '\0')
    return std::nullopt;
  return text.get();
}

}  // namespace Platform::Linux
