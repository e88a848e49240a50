#include "Platform/Linux/LinuxBundle.h"

#include <system_error>
#include <utility>

#include <glib.h>

#include "DesktopSupport/GLibHandles.h"

namespace Platform::Linux {

namespace {

using KeyFileHandle = std::unique_ptr<GKeyFile, DesktopSupport::ReleasedBy<g_key_file_unref>>;

constexpr const char* group = "Bundle";

std::filesystem::path executableDirectory() {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
}

std::map<std::string, std::string> readInformation(const std::filesystem::path& file) {
  std::map<std::string, std::string> information;
  const KeyFileHandle keyFile(g_key_file_new());
  if (!g_key_file_load_from_file(keyFile.get(), file.c_str(), G_KEY_FILE_NONE, nullptr))
    return information;
  const DesktopSupport::StringsHandle keys(g_key_file_get_keys(keyFile.get(), group, nullptr, nullptr));
  for (gchar** key = keys.get(); key != nullptr && *key != nullptr; ++key) {
    const DesktopSupport::CharsHandle value(g_key_file_get_string(keyFile.get(), group, *key, nullptr));
    if (value && *value != '\0')
      information.emplace(*key, value.get());
  }
  return information;
}

}  // namespace

LinuxBundle::LinuxBundle() : LinuxBundle(executableDirectory()) {}

LinuxBundle::LinuxBundle(std::filesystem::path path)
    : path_(std::move(path)), information_(readInformation(path_ / "Info.ini")) {}

std::optional<std::string> LinuxBundle::value(const std::string& key) const {
  const auto found = information_.find(key);
  return found == information_.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace Platform::Linux
