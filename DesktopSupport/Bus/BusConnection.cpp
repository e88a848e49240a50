#include "DesktopSupport/Bus/BusConnection.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <thread>
#include <utility>

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include "DesktopSupport/Bus/BusSocket.h"

namespace DesktopSupport {

namespace {

/// How much is read at once, unless a message is known to be longer.
constexpr std::size_t usualRead = 16384;
/// The longest line with which the bus accepts or rejects a user.
constexpr std::size_t longestGreeting = 1024;

BusError disconnected() {
  return {.name = std::string(BusErrorName::disconnected), .message = "The bus has closed the connection."};
}

BusError late() {
  return {.name = std::string(BusErrorName::timeout), .message = "There was no answer in time."};
}

int millisecondsUntil(BusConnection::Clock::time_point deadline) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - BusConnection::Clock::now());
  return static_cast<int>(std::clamp<std::chrono::milliseconds::rep>(left.count(), 0, INT_MAX));
}

}  // namespace

/// A thread that waits for answers. Used with the connection's lock held, but for `sleep`.
class BusConnection::Wait {
 public:
  explicit Wait(std::size_t count) : left_(count) {
    for (; count > 0; --count)
      answers_.emplace_back(std::unexpected(late()));
  }

  void finish(std::size_t index, BusAnswer answer) {
    answers_[index] = std::move(answer);
    --left_;
    constexpr std::uint64_t one = 1;
    if (std::this_thread::get_id() != thread_) [[maybe_unused]]
      const auto written = ::write(event_.number(), &one, sizeof one);
  }

  [[nodiscard]] bool isOver() const { return left_ == 0; }
  std::vector<BusAnswer> takeAnswers() { return std::move(answers_); }

  /// Returns at the deadline, when the socket is ready, or when another thread has finished a call.
  void sleep(int socket, bool writes, Clock::time_point deadline) const {
    const auto events = static_cast<short>(writes ? POLLIN | POLLOUT : POLLIN);
    std::array descriptors = {pollfd{.fd = socket, .events = events, .revents = 0},
                              pollfd{.fd = event_.number(), .events = POLLIN, .revents = 0}};
    poll(descriptors.data(), descriptors.size(), millisecondsUntil(deadline));
    std::uint64_t count = 0;
    if (descriptors[1].revents != 0) [[maybe_unused]]
      const auto size = ::read(event_.number(), &count, sizeof count);
  }

 private:
  std::thread::id thread_ = std::this_thread::get_id();
  FileDescriptor event_{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
  std::vector<BusAnswer> answers_;
  std::size_t left_;
};

std::expected<std::shared_ptr<BusConnection>, BusError> BusConnection::open(std::string_view address,
                                                                            std::chrono::milliseconds patience) {
  const auto deadline = Clock::now() + patience;
  auto socket = connectedBusSocket(address, patience);
  if (!socket)
    return std::unexpected(std::move(socket.error()));
  std::shared_ptr<BusConnection> connection(new BusConnection(std::move(*socket)));
  // The first call follows without waiting for the bus to accept the user.
  connection->outgoing_.push_back(busAuthentication());
  std::vector<BusMessage> hello;
  hello.push_back({.destination = "org.freedesktop.DBus",
                   .path = "/org/freedesktop/DBus",
                   .interface = "org.freedesktop.DBus",
                   .member = "Hello"});
  const auto answers = connection->call(std::move(hello), deadline);
  const BusAnswer& answer = answers.front();
  const auto failure = [](std::string reason) {
    return std::unexpected(BusError{std::string(BusErrorName::noServer), std::move(reason)});
  };
  if (!answer)
    return failure(answer.error().name == BusErrorName::timeout ? "The session bus does not answer."
                                                                : answer.error().message);
  if (g_variant_is_of_type(answer->get(), G_VARIANT_TYPE("(s)")) == FALSE)
    return failure("The session bus gives no name.");
  const char* name = nullptr;
  g_variant_get(answer->get(), "(&s)", &name);
  connection->uniqueName_ = name;
  return connection;
}

BusConnection::BusConnection(std::unique_ptr<FileDescriptor> socket) : socket_(std::move(socket)) {}

BusConnection::~BusConnection() = default;

std::uint32_t BusConnection::nextSerial() {
  const std::uint32_t serial = ++lastSerial_;
  return serial != 0 ? serial : ++lastSerial_;
}

BusSource& BusConnection::mainSource() {
  const std::lock_guard lock(mutex_);
  if (!mainSource_) {
    mainSource_ = std::make_unique<BusSource>(weak_from_this(), socket_->number(), nullptr);
    sources_.push_back(mainSource_.get());
  }
  return *mainSource_;
}

std::vector<BusAnswer> BusConnection::call(std::vector<BusMessage> calls, Clock::time_point deadline) {
  Wait wait(calls.size());
  std::vector<std::uint32_t> serials;
  for (std::size_t index = 0; index < calls.size(); ++index) {
    calls[index].serial = nextSerial();
    serials.push_back(calls[index].serial);
    auto bytes = encoded(calls[index]);
    const std::lock_guard lock(mutex_);
    const auto finishThis = [&wait, index](BusAnswer answer) { wait.finish(index, std::move(answer)); };
    if (bytes)
      begin(serials.back(), std::move(*bytes), {.whenAnswered = finishThis, .deadline = std::nullopt});
    else
      finishThis(std::unexpected(std::move(bytes.error())));
  }
  calls.clear();

  std::unique_lock lock(mutex_);
  while (!wait.isOver() && Clock::now() < deadline) {
    const bool writes = !outgoing_.empty();
    lock.unlock();
    wait.sleep(socket_->number(), writes, deadline);
    lock.lock();
    exchangeLocked();
  }
  for (const std::uint32_t serial : serials)
    pending_.erase(serial);
  return wait.takeAnswers();
}

void BusConnection::callLater(BusMessage call, Clock::time_point deadline, WhenAnswered whenAnswered) {
  BusSource& source = mainSource();
  auto finishThis = [&source, whenAnswered = std::move(whenAnswered)](BusAnswer answer) mutable {
    source.post([whenAnswered = std::move(whenAnswered), answer = std::move(answer)]() mutable {
      whenAnswered(std::move(answer));
    });
  };
  call.serial = nextSerial();
  auto bytes = encoded(call);
  const std::lock_guard lock(mutex_);
  if (bytes)
    begin(call.serial, std::move(*bytes), {.whenAnswered = std::move(finishThis), .deadline = deadline});
  else
    finishThis(std::unexpected(std::move(bytes.error())));
  source.wake();  // to the deadline
}

void BusConnection::send(BusMessage message) {
  message.serial = nextSerial();
  auto bytes = encoded(message);
  if (!bytes)
    return;
  const std::lock_guard lock(mutex_);
  if (isOpen_)
    enqueue(std::move(*bytes));
}

std::unique_ptr<BusSource> BusConnection::serve(const std::string& path, BusInterface interface, GMainContext* context,
                                                BusObjects::Take take) {
  auto source = std::make_unique<BusSource>(weak_from_this(), socket_->number(), context);
  const std::lock_guard lock(mutex_);
  sources_.push_back(source.get());
  objects_.add(path, std::move(interface), [source = source.get(), take = std::move(take)](BusMessage call) {
    source->post([take, call = std::move(call)]() mutable { take(std::move(call)); });
  });
  return source;
}

void BusConnection::unserve(const std::string& path, std::string_view interface, std::unique_ptr<BusSource> source) {
  std::unique_lock lock(mutex_);
  std::erase(sources_, source.get());
  objects_.remove(path, interface);
  lock.unlock();
  source.reset();
}

std::uint64_t BusConnection::subscribe(std::string path, std::string interface, BusObjects::Take take) {
  static_cast<void>(mainSource());
  const std::lock_guard lock(mutex_);
  const std::uint64_t number = ++subscriptionCount_;
  subscriptions_[number] = {.path = std::move(path), .interface = std::move(interface), .take = std::move(take)};
  return number;
}

void BusConnection::unsubscribe(std::uint64_t number) {
  const std::lock_guard lock(mutex_);
  subscriptions_.erase(number);
}

void BusConnection::setWhenClosed(BusSource::Work whenClosed) {
  BusSource& source = mainSource();
  const std::lock_guard lock(mutex_);
  whenClosed_ = std::move(whenClosed);
  if (!isOpen_ && whenClosed_)
    source.post(std::move(whenClosed_));
}

BusConnection::Interest BusConnection::interest() {
  const std::lock_guard lock(mutex_);
  Interest interest{.isOpen = isOpen_, .writes = !outgoing_.empty()};
  for (const auto& [serial, pending] : pending_)
    if (pending.deadline)
      interest.deadline = std::min(*pending.deadline, interest.deadline.value_or(Clock::time_point::max()));
  return interest;
}

void BusConnection::exchange() {
  const std::lock_guard lock(mutex_);
  exchangeLocked();
}

void BusConnection::exchangeLocked() {
  write();
  read();
  endOverdue();
}

void BusConnection::begin(std::uint32_t serial, std::string bytes, Pending pending) {
  pending_.emplace(serial, std::move(pending));
  if (isOpen_)
    enqueue(std::move(bytes));
  else
    finish(serial, std::unexpected(disconnected()));
}

void BusConnection::enqueue(std::string bytes) {
  outgoing_.push_back(std::move(bytes));
  write();
  if (!outgoing_.empty())
    for (const BusSource* source : sources_)
      source->wake();
}

void BusConnection::write() {
  while (!outgoing_.empty()) {
    const std::string_view rest = std::string_view(outgoing_.front()).substr(written_);
    const ssize_t count = ::send(socket_->number(), rest.data(), rest.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    if (count < 0 && errno == EINTR)
      continue;
    if (count < 0) {
      if (errno != EAGAIN)
        outgoing_.clear();  // what the bus has sent before can still be read
      break;
    }
    written_ += static_cast<std::size_t>(count);
    if (written_ < outgoing_.front().size())
      continue;
    outgoing_.pop_front();
    written_ = 0;
  }
  if (outgoing_.empty())
    written_ = 0;
}

void BusConnection::read() {
  while (isOpen_ && readOnce())
    takeMessages();
}

/// The rest of the first message if that is long.
std::size_t BusConnection::nextReadSize() const {
  const auto size = isAccepted_ ? busMessageSize(incoming_) : std::nullopt;
  return size && *size > incoming_.size() ? std::max(*size - incoming_.size(), usualRead) : usualRead;
}

/// Returns whether there may be more to read.
bool BusConnection::readOnce() {
  const std::size_t had = incoming_.size();
  const std::size_t room = nextReadSize();
  ssize_t count = 0;
  int problem = 0;
  incoming_.resize_and_overwrite(had + room, [&](char* bytes, std::size_t) {
    count = recv(socket_->number(), bytes + had, room, MSG_DONTWAIT);
    problem = errno;
    return had + static_cast<std::size_t>(std::max<ssize_t>(count, 0));
  });
  if (count < 0 && (problem == EAGAIN || problem == EINTR))
    return problem == EINTR;
  if (count <= 0)
    close();
  return count > 0;
}

void BusConnection::takeMessages() {
  if (!isAccepted_ && !takeGreeting())
    return;
  std::size_t taken = 0;
  while (isOpen_ && incoming_.size() - taken >= busMessageStart) {
    const std::string_view rest = std::string_view(incoming_).substr(taken);
    const auto size = busMessageSize(rest);
    if (size && rest.size() < *size)
      break;
    auto message = size ? decodedMessage(rest.substr(0, *size)) : std::nullopt;
    if (!message)
      return close();
    taken += *size;
    take(std::move(*message));
  }
  if (taken == incoming_.size() && incoming_.capacity() > 4 * usualRead)
    incoming_ = {};
  else
    incoming_.erase(0, taken);
}

/// The line in which the bus accepts the user. Returns whether it has.
bool BusConnection::takeGreeting() {
  constexpr std::string_view lineEnd = "\r\n";
  const auto end = incoming_.find(lineEnd);
  if (end == std::string::npos ? incoming_.size() > longestGreeting : !incoming_.starts_with("OK "))
    close();
  if (end == std::string::npos || !isOpen_)
    return false;
  incoming_.erase(0, end + lineEnd.size());
  isAccepted_ = true;
  return true;
}

void BusConnection::take(BusMessage message) {
  using Type = BusMessage::Type;
  if (message.type == Type::answer)
    return finish(message.answeredSerial, std::move(message.arguments));
  if (message.type == Type::error)
    return finish(message.answeredSerial, std::unexpected(errorIn(message)));
  if (message.type == Type::call)
    return takeCall(std::move(message));
  if (message.type == Type::signal)
    return takeSignal(std::move(message));
}

void BusConnection::takeCall(BusMessage call) {
  const bool wantsAnswer = call.wantsAnswer;
  auto answer = objects_.take(std::move(call));
  if (!answer || !wantsAnswer)
    return;
  answer->serial = nextSerial();
  if (auto bytes = encoded(*answer))
    enqueue(std::move(*bytes));
}

/// The first subscription that wants it gets it.
void BusConnection::takeSignal(BusMessage signal) {
  for (const auto& [each, subscription] : subscriptions_)
    if (subscription.path == signal.path && subscription.interface == signal.interface)
      return mainSource_->post([weak = weak_from_this(), number = each, signal = std::move(signal)]() mutable {
        if (const auto connection = weak.lock())
          connection->giveSignal(number, std::move(signal));
      });
}

/// Called from the main context. Nobody may want it any more.
void BusConnection::giveSignal(std::uint64_t number, BusMessage signal) {
  std::unique_lock lock(mutex_);
  const auto found = subscriptions_.find(number);
  if (found == subscriptions_.end())
    return;
  const BusObjects::Take take = found->second.take;
  lock.unlock();
  take(std::move(signal));
}

void BusConnection::finish(std::uint32_t serial, BusAnswer answer) {
  if (auto call = pending_.extract(serial))
    call.mapped().whenAnswered(std::move(answer));
}

void BusConnection::endOverdue() {
  const auto now = Clock::now();
  std::vector<std::uint32_t> overdue;
  for (const auto& [serial, pending] : pending_)
    if (pending.deadline && *pending.deadline <= now)
      overdue.push_back(serial);
  for (const std::uint32_t serial : overdue)
    finish(serial, std::unexpected(late()));
}

void BusConnection::close() {
  isOpen_ = false;
  outgoing_.clear();
  shutdown(socket_->number(), SHUT_RDWR);
  while (!pending_.empty())
    finish(pending_.begin()->first, std::unexpected(disconnected()));
  if (mainSource_ && whenClosed_)
    mainSource_->post(std::move(whenClosed_));
}

}  // namespace DesktopSupport
