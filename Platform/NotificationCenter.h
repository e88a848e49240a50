#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace Platform {

/// Posted by the application when it has handled the launch URLs that it was started with.
inline constexpr std::string_view applicationDidFinishLaunchingNotification =
    "NSApplicationDidFinishLaunchingNotification";
/// Posted by the application when it is about to end. The application waits for the observers.
inline constexpr std::string_view applicationWillTerminateNotification = "NSApplicationWillTerminateNotification";

/// Something that happened, and the object that posted it (NSNotification).
struct Notification {
  /// What has happened.
  std::string_view name;
  /// The poster, which is only compared, never used; null if there is none.
  const void* object = nullptr;
};

/// Tells observers what has happened, synchronously and in the order in which they were added (NSNotificationCenter).
/// Post on the main thread alone; observers may be added and removed on any thread.
class NotificationCenter {
 public:
  /// Called on the thread that posts.
  using Observer = std::function<void(const Notification&)>;
  /// Stands for an observation, to end it.
  enum class Token : std::uint64_t {};

  /// Calls `observer` for every notification of this name that `object` posts, or that anyone posts if `object` is
  /// null. Dropping the token doesn't end the observation: an observer that may outlive what it uses is either removed
  /// in time or made with `Lifetime::guarded`.
  Token addObserver(std::string_view name, const void* object, Observer observer);

  /// Ends an observation. Does nothing if it has ended.
  void removeObserver(Token token);

  /// Calls the observers of this notification. An observer that is removed meanwhile is not called any more, and one
  /// that is added meanwhile is not called yet.
  void post(const Notification& notification);

 private:
  struct Entry {
    Token token;
    std::string name;
    const void* object;
    Observer observer;
  };

  [[nodiscard]] std::vector<Token> interested(const Notification& notification) const;
  [[nodiscard]] Observer find(Token token) const;

  mutable std::mutex mutex_;
  std::vector<Entry> entries_;
  std::uint64_t lastToken_ = 0;
};

}  // namespace Platform
