#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Platform/AppleEvents.h"
#include "Platform/NotificationCenter.h"

/// What a plug-in needs from a desktop, and nothing more: small abstract classes, reached through `services()`.
namespace Platform {

/// The running application (NSApplication). It posts its notifications, with itself as the object, through the ambient
/// notification center.
class Application {
 public:
  virtual ~Application() = default;

  /// Asks the application to end (terminate:) and returns. From then on nothing that waits begins: queued work is
  /// dropped, alerts are not shown, and launch URLs go to a fresh process. The will-terminate notification is posted,
  /// once however often this is called; then the process ends.
  virtual void terminate() = 0;
};

/// The part of an application that is the same on every desktop and in tests: the order in which launches are delivered
/// and notifications posted. A desktop adds the main loop and the queue in which launches wait. For the main thread
/// alone, except for `isTerminating`.
class LaunchedApplication : public Application {
 public:
  /// A launch that waits for its delivery.
  struct Launch {
    /// The launch URL; `nullopt` if the application only has to be there.
    std::optional<std::string> url;
    /// Called when it has been delivered; may be empty.
    std::function<void()> finished = {};
  };
  /// Takes the launch that is next; `nullopt` if none waits.
  using NextLaunch = std::function<std::optional<Launch>()>;

  /// Delivers launch URLs to `appleEvents` and posts to `notifications`. Both must outlive the application.
  LaunchedApplication(AppleEventManager& appleEvents, NotificationCenter& notifications)
      : appleEvents_(appleEvents), notifications_(notifications) {}
  LaunchedApplication(const LaunchedApplication&) = delete;
  LaunchedApplication& operator=(const LaunchedApplication&) = delete;
  ~LaunchedApplication() override = default;

  void terminate() override { isTerminating_ = true; }
  /// Whether the application was asked to terminate. May be called on any thread.
  [[nodiscard]] bool isTerminating() const { return isTerminating_; }

  /// Delivers launches as Apple events, one after the other, until none waits or the application is asked to terminate.
  /// While a launch is being delivered, does nothing, so a handler that runs the main loop, for an alert, is not
  /// interrupted by the next launch.
  void deliver(const NextLaunch& next);

  /// Posts the finished-launching notification, unless the application was asked to terminate.
  void finishLaunching();

  /// Posts the will-terminate notification, at the first call.
  void postWillTerminate();

 protected:
  /// Whether a launch is being delivered.
  [[nodiscard]] bool isDelivering() const { return isDelivering_; }
  /// Forgets that the application was asked to terminate and that it has ended, as a test may want.
  void restart() { isTerminating_ = hasPostedWillTerminate_ = false; }

 private:
  AppleEventManager& appleEvents_;
  NotificationCenter& notifications_;
  bool isDelivering_ = false;
  std::atomic<bool> isTerminating_ = false;
  bool hasPostedWillTerminate_ = false;
};

/// What the application's own code does in the course of its life (NSApplicationDelegate). It is made before launching
/// finishes and lives until the process ends.
class ApplicationDelegate {
 public:
  virtual ~ApplicationDelegate() = default;

  /// Called once, after the launch URLs that the process was started with have been handled. Not called if one of them
  /// has ended the application.
  virtual void applicationDidFinishLaunching(const Notification& notification) = 0;
};

/// Makes the application's delegate, after the services are installed and before a launch URL is delivered.
using MakeApplicationDelegate = std::function<std::unique_ptr<ApplicationDelegate>()>;

/// The application main routine (NSApplicationMain): installs this desktop's services, makes the delegate, delivers the
/// launch URLs, and runs until the application terminates. Takes the process's arguments and yields its exit status.
/// Each desktop supplies one.
int applicationMain(int argumentCount, char** arguments, const MakeApplicationDelegate& makeDelegate);

}  // namespace Platform
