#include "UpdateCheck/UpdateState.h"

#include <cstdint>
#include <memory>

#include <glib.h>

#include "DesktopSupport/GLibHandles.h"
#include "UpdateCheck/Version.h"

namespace UpdateCheck {

namespace {

using DesktopSupport::CharsHandle;
using DesktopSupport::ErrorHandle;
using DesktopSupport::Out;
using KeyFileHandle = std::unique_ptr<GKeyFile, DesktopSupport::ReleasedBy<g_key_file_unref>>;

constexpr const char* group = "Updates";
constexpr const char* lastCheckKey = "LastCheck";
constexpr const char* announcedVersionKey = "AnnouncedVersion";

std::optional<std::chrono::sys_seconds> timeIn(GKeyFile* file) {
  ErrorHandle error;
  const std::int64_t seconds = g_key_file_get_int64(file, group, lastCheckKey, Out(error));
  if (error || seconds < 0)
    return std::nullopt;
  return std::chrono::sys_seconds(std::chrono::seconds(seconds));
}

}  // namespace

UpdateState UpdateState::parse(const std::string& text) {
  const KeyFileHandle file(g_key_file_new());
  if (g_key_file_load_from_data(file.get(), text.data(), text.size(), G_KEY_FILE_NONE, nullptr) == FALSE)
    return {};
  UpdateState state;
  state.lastCheck = timeIn(file.get());
  const CharsHandle version(g_key_file_get_string(file.get(), group, announcedVersionKey, nullptr));
  if (version)
    state.announcedVersion = version.get();
  return state;
}

std::string UpdateState::text() const {
  const KeyFileHandle file(g_key_file_new());
  if (lastCheck)
    g_key_file_set_int64(file.get(), group, lastCheckKey, lastCheck->time_since_epoch().count());
  if (announcedVersion)
    g_key_file_set_string(file.get(), group, announcedVersionKey, announcedVersion->c_str());
  const CharsHandle data(g_key_file_to_data(file.get(), nullptr, nullptr));
  return data.get();
}

bool UpdateState::isDue(std::chrono::sys_seconds now, std::chrono::seconds interval) const {
  return !lastCheck || *lastCheck > now || *lastCheck <= now - interval;
}

bool UpdateState::hasAnnounced(std::string_view version) const {
  return announcedVersion && Version(*announcedVersion) == Version(version);
}

}  // namespace UpdateCheck
