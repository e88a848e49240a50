#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <glib.h>

#include "DesktopSupport/Bus/SessionBus.h"
#include "Linux/Launching/LaunchQueue.h"

namespace Linux {

/// How long a launch that came by the bus waits for the main thread. A main thread that is busy for longer may be busy
/// for minutes.
inline constexpr std::chrono::milliseconds longestWait{500};

/// The launches that a call of org.freedesktop.Application asks for: one for each URL, and one without a URL for
/// Activate and ActivateAction. The invocation is answered after all of them were answered.
std::vector<Launch> launchesOf(DesktopSupport::BusInvocation invocation,
                               Launch::Clock::time_point now = Launch::Clock::now());

/// The platform data of a caller that does the launch itself if it hears of no success in time: the time by which the
/// launch must begin. Floating; of type a{sv}.
GVariant* dataWithDeadline(Launch::Clock::time_point beginBy);

/// The application on the session bus: it owns the name, and exports the object with org.freedesktop.Application.
class BusPresence {
 public:
  /// Called with each launch that the bus delivers.
  using TakeLaunch = std::function<void(Launch launch)>;

  /// The timeout of calls to the bus and to another process of the application.
  static constexpr std::chrono::seconds answerTime{2};
  /// How long another process may take to begin with a forwarded launch. The rest of `answerTime` is for its answer.
  static constexpr std::chrono::milliseconds beginTime{750};

  /// The presence of the application `identifier`, a well-known bus name. Calls `takeLaunch` from `context`.
  BusPresence(DesktopSupport::SessionBus bus, std::string identifier, GMainContext* context, TakeLaunch takeLaunch);
  BusPresence(const BusPresence&) = delete;
  BusPresence& operator=(const BusPresence&) = delete;
  ~BusPresence() = default;

  /// Takes the name; launches arrive from then on. False if another process has the name, or if the bus refuses or does
  /// not answer.
  [[nodiscard]] bool acquireName();

  /// Delivers the URLs to the process that has the name, or activates it if there are no URLs. False if no process has
  /// the name any more, or the one that has it is too busy. Afterwards `launchURLs` holds only the URLs that it did not
  /// take.
  [[nodiscard]] bool forward(std::vector<std::string>& launchURLs) const;

  /// Gives up the name, so that later launches start a fresh process. When this returns, all that the bus had sent
  /// before is waiting in the context.
  void releaseName();

  /// Returns when the bus has received all answers to what it has delivered.
  void flush() const;

 private:
  [[nodiscard]] bool deliver(const char* method, GVariant* arguments) const;
  void take(DesktopSupport::BusInvocation invocation);

  DesktopSupport::SessionBus bus_;
  std::string identifier_;
  std::string objectPath_;
  TakeLaunch takeLaunch_;
  bool mayOwnName_ = false;
  bool wasCalled_ = false;
  std::unique_ptr<DesktopSupport::ServedObject> object_;
};

}  // namespace Linux
