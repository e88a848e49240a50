#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <deque>
#include <expected>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "DesktopSupport/Bus/BusMessage.h"
#include "DesktopSupport/Bus/BusObjects.h"
#include "DesktopSupport/Bus/BusSource.h"
#include "DesktopSupport/System/FileDescriptor.h"

namespace DesktopSupport {

/// A connection to a bus, which all threads may use at once. It has no thread of its own: a thread that waits for an
/// answer reads whatever arrives, and main contexts that serve the connection do so too. Whoever has read a message
/// gives it to the thread that it is for.
class BusConnection : public std::enable_shared_from_this<BusConnection> {
 public:
  using Clock = std::chrono::steady_clock;
  using WhenAnswered = std::move_only_function<void(BusAnswer)>;

  /// Connects to the bus at `address` (see `connectedBusSocket`). Fails with `noServer` if that takes longer than
  /// `patience`.
  static std::expected<std::shared_ptr<BusConnection>, BusError> open(std::string_view address,
                                                                      std::chrono::milliseconds patience);
  BusConnection(const BusConnection&) = delete;
  BusConnection& operator=(const BusConnection&) = delete;
  ~BusConnection();

  /// The name that the bus has given to the connection.
  [[nodiscard]] const std::string& uniqueName() const { return uniqueName_; }

  /// Sends the calls, waits for the answers until `deadline`, and returns them in the order of the calls.
  std::vector<BusAnswer> call(std::vector<BusMessage> calls, Clock::time_point deadline);

  /// Sends the call, and gives the answer to `whenAnswered` from the main context.
  void callLater(BusMessage call, Clock::time_point deadline, WhenAnswered whenAnswered);

  /// Sends a message that nobody answers.
  void send(BusMessage message);

  /// Has an object at `path` with the interface; `take` is called from `context`. The source serves it until `unserve`.
  std::unique_ptr<BusSource> serve(const std::string& path, BusInterface interface, GMainContext* context,
                                   BusObjects::Take take);
  void unserve(const std::string& path, std::string_view interface, std::unique_ptr<BusSource> source);

  /// Gives `take` the signals of `interface` that the object at `path` emits, from the main context, until
  /// `unsubscribe` with the returned number.
  std::uint64_t subscribe(std::string path, std::string interface, BusObjects::Take take);
  void unsubscribe(std::uint64_t number);

  /// Calls `whenClosed` from the main context when the bus has closed the connection. Replaces an earlier one.
  void setWhenClosed(BusSource::Work whenClosed);

  /// What a source waits for.
  struct Interest {
    bool isOpen = true;
    bool writes = false;
    std::optional<Clock::time_point> deadline = std::nullopt;
  };
  Interest interest();

  /// Writes what waits and reads what has arrived, without waiting. Ends the calls whose deadline has passed.
  void exchange();

 private:
  class Wait;
  struct Pending {
    WhenAnswered whenAnswered;
    /// Only if no thread waits for the answer.
    std::optional<Clock::time_point> deadline;
  };
  struct Subscription {
    std::string path;
    std::string interface;
    BusObjects::Take take;
  };

  explicit BusConnection(std::unique_ptr<FileDescriptor> socket);
  std::uint32_t nextSerial();
  BusSource& mainSource();

  // With the lock held.
  void begin(std::uint32_t serial, std::string bytes, Pending pending);
  void enqueue(std::string bytes);
  void write();
  void read();
  bool readOnce();
  std::size_t nextReadSize() const;
  void takeMessages();
  bool takeGreeting();
  void take(BusMessage message);
  void takeCall(BusMessage call);
  void takeSignal(BusMessage signal);
  void giveSignal(std::uint64_t number, BusMessage signal);
  void finish(std::uint32_t serial, BusAnswer answer);
  void endOverdue();
  void exchangeLocked();
  void close();

  std::unique_ptr<FileDescriptor> socket_;
  std::string uniqueName_;
  std::atomic<std::uint32_t> lastSerial_ = 0;

  std::mutex mutex_;
  bool isOpen_ = true;
  /// Whether the bus has accepted this process's user.
  bool isAccepted_ = false;
  std::string incoming_;
  std::deque<std::string> outgoing_;
  /// How much of the first of them is written.
  std::size_t written_ = 0;
  std::map<std::uint32_t, Pending> pending_;
  BusObjects objects_;
  std::uint64_t subscriptionCount_ = 0;
  std::map<std::uint64_t, Subscription> subscriptions_;
  std::vector<BusSource*> sources_;
  std::unique_ptr<BusSource> mainSource_;
  BusSource::Work whenClosed_;
};

}  // namespace DesktopSupport
