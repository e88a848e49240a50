#include "UpdateCheck/UpdateState.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <glib.h>
#include <sys/file.h>

#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "UpdateCheck/Version.h"

namespace UpdateCheck {

namespace {

using DesktopSupport::CharsHandle;
using DesktopSupport::ErrorHandle;
using DesktopSupport::FileDescriptor;
using DesktopSupport::KeyFileHandle;
using DesktopSupport::Out;

constexpr std::size_t maximumSize = 64UL * 1024;

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

bool hasPassed(std::chrono::seconds interval, const Time& since, std::chrono::sys_seconds now) {
  return !since || *since > now || *since <= now - interval;
}

std::string problemWith(const std::filesystem::path& path, int error) {
  return "cannot use " + path.string() + ": " + std::system_category().message(error);
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
  return hasPassed(interval, lastCheck, now) && hasPassed(std::min(interval, retryInterval), lastAttempt, now);
}

bool UpdateState::hasAnnounced(std::string_view version) const {
  return announcedVersion && Version(*announcedVersion) == Version(version);
}

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
  ErrorHandle error;
  if (g_file_set_contents(path_.c_str(), text.data(), static_cast<gssize>(text.size()), Out(error)) == FALSE)
    return std::unexpected(std::string(error->message));
  return {};
}

}  // namespace UpdateCheck
