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
/// Posted by the application when it is about to end; it waits for the observers.
inline constexpr std::string_view applicationWillTerminateNotification = "NSApplicationWillTerminateNotification";

/// Something that happened, and to whom (NSNotification).
struct Notification {
  /// What has happened.
  std::string_view name;
  /// To whom; only compared, never used. Null where it is nobody.
  const void* object = nullptr;
};

/// Tells observers what has happened, synchronously and in the order in which they came (NSNotificationCenter). Posted
/// on the main thread alone; observers come and go on any.
class NotificationCenter {
 public:
  /// Called on the thread that posts.
  using Observer = std::function<void(const Notification&)>;
  /// An observation, by which to end it.
  enum class Token : std::uint64_t {};

  /// Calls `observer` for every notification of this name that `object` posts, or that anyone posts where `object` is
  /// null. The token ends the observation; dropping it does not.
  Token addObserver(std::string_view name, const void* object, Observer observer);

  /// Ends an observation. Does nothing for one that has ended.
  void removeObserver(Token token);

  /// Calls the observers of this notification. One that is removed meanwhile is not called any more, one that is added
  /// meanwhile is not called yet.
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
