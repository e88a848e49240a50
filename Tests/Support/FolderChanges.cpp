#include "Tests/Support/FolderChanges.h"

#include <array>
#include <chrono>
#include <stdexcept>
#include <system_error>
#include <utility>

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include "Tests/Support/Patience.h"

namespace TestSupport {

namespace {

using Clock = std::chrono::steady_clock;

/// Reads all pending events: one of them is enough to check again.
void takeEvents(int events) {
  std::array<char, 4096> bytes{};
  while (read(events, bytes.data(), bytes.size()) > 0) {
  }
}

}  // namespace

FolderChanges::FolderChanges(std::filesystem::path folder)
    : folder_(std::move(folder)), events_(inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {
  std::filesystem::create_directories(folder_);
  if (!watch(folder_))
    throw std::runtime_error("cannot watch " + folder_.string());
  watchFoldersInside();
}

bool FolderChanges::watch(const std::filesystem::path& folder) const {
  constexpr std::uint32_t changes = IN_CREATE | IN_MODIFY | IN_ATTRIB | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE;
  return inotify_add_watch(events_.number(), folder.c_str(), changes) >= 0;
}

// Watching a folder again changes nothing. A folder may be gone already.
void FolderChanges::watchFoldersInside() const {
  std::error_code error;
  using Folders = std::filesystem::recursive_directory_iterator;
  for (Folders entry(folder_, error), end; !error && entry != end; entry.increment(error))
    if (std::error_code ignored; entry->is_directory(ignored))
      static_cast<void>(watch(entry->path()));
}

bool FolderChanges::waitUntil(const std::function<bool()>& condition, int other) const {
  const auto deadline = Clock::now() + patience;
  while (!condition()) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
    if (left.count() <= 0)
      return false;
    std::array<pollfd, 2> changes = {pollfd{.fd = events_.number(), .events = POLLIN, .revents = 0},
                                     pollfd{.fd = other, .events = POLLIN, .revents = 0}};
    poll(changes.data(), changes.size(), static_cast<int>(left.count()));
    takeEvents(events_.number());
    watchFoldersInside();
  }
  return true;
}

}  // namespace TestSupport
