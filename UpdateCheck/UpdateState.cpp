#include "UpdateCheck/UpdateState.h"

#include <algorithm>
#include <cstdint>
#include <memory>

#include <glib.h>

#include "DesktopSupport/System/GLibHandles.h"
#include "UpdateCheck/Version.h"

namespace UpdateCheck {

namespace {

using DesktopSupport::CharsHandle;
using DesktopSupport::ErrorHandle;
using DesktopSupport::KeyFileHandle;
using DesktopSupport::Out;

constexpr const char* group = "Updates";
constexpr const char* lastCheckKey = "LastCheck";
constexpr const char* lastAttemptKey = "LastAttempt";
constexpr const char* announcedVersionKey = "AnnouncedVersion";

using Time = std::optional<std::chrono::sys_seconds>;

Time timeIn(GKeyFile* file, const char* key) {
  ErrorHandle error;
  const std::int64_t seconds = g_key_file_get_int64(file, group, key, Out(error));
  if (error || seconds < 0)
    return std::nullopt;
  return std::chrono::sys_seconds(std::chrono::seconds(seconds));
}

void setTime(GKeyFile* file, const char* key, const Time& time) {
  if (time)
    g_key_file_set_int64(file, group, key, time->time_since_epoch().count());
}

bool hasGoneBy(std::chrono::seconds interval, const Time& since, std::chrono::sys_seconds now) {
  return !since || *since > now || *since <= now - interval;
}

}  // namespace

UpdateState UpdateState::parse(const std::string& text) {
  const KeyFileHandle file(g_key_file_new());
  if (g_key_file_load_from_data(file.get(), text.data(), text.size(), G_KEY_FILE_NONE, nullptr) == FALSE)
    return {};
  UpdateState state;
  state.lastCheck = timeIn(file.get(), lastCheckKey);
  state.lastAttempt = timeIn(file.get(), lastAttemptKey);
  const CharsHandle version(g_key_file_get_string(file.get(), group, announcedVersionKey, nullptr));
  if (version)
    state.announcedVersion = version.get();
  return state;
}

std::string UpdateState::text() const {
  const KeyFileHandle file(g_key_file_new());
  setTime(file.get(), lastCheckKey, lastCheck);
  setTime(file.get(), lastAttemptKey, lastAttempt);
  if (announcedVersion)
    g_key_file_set_string(file.get(), group, announcedVersionKey, announcedVersion->c_str());
  const CharsHandle data(g_key_file_to_data(file.get(), nullptr, nullptr));
  return data.get();
}

bool UpdateState::isDue(std::chrono::sys_seconds now, std::chrono::seconds interval) const {
  return hasGoneBy(interval, lastCheck, now) && hasGoneBy(std::min(interval, retryInterval), lastAttempt, now);
}

bool UpdateState::hasAnnounced(std::string_view version) const {
  return announcedVersion && Version(*announcedVersion) == Version(version);
}

}  // namespace UpdateCheck
