#include "Companions/Browser/Host/Companion.h"

#include <array>
#include <cerrno>
#include <optional>
#include <utility>
#include <variant>

#include <glib-unix.h>
#include <malloc.h>
#include <unistd.h>

#include "DesktopSupport/Bus/BusDaemon.h"

namespace BrowserCompanion {

namespace {

using BrowserSessions::CompanionAnswer;
using BrowserSessions::CompanionWindow;
using DesktopSupport::BusInvocation;
namespace BusErrorName = DesktopSupport::BusErrorName;

constexpr std::chrono::seconds busTime(5);

void append(CompanionAnswer& answer, CompanionWindow part) {
  if (answer.windows.empty() || answer.windows.back().number != part.number) {
    answer.windows.push_back(std::move(part));
    return;
  }
  answer.windows.back().tabs += part.tabs;
}

}  // namespace

/// A caller that waits, and what the extension has told so far.
struct Companion::Request {
  Request(Companion& owner, std::int64_t itsNumber, BusInvocation itsInvocation)
      : companion(owner), number(itsNumber), invocation(std::move(itsInvocation)), limit(g_timeout_source_new(0)) {
    wait();
    const auto timeIsOver = [](gpointer self) -> gboolean {
      const auto& request = *static_cast<Request*>(self);
      request.companion.refuse(request.number, BusErrorName::timeout, "The browser does not answer.");
      return G_SOURCE_REMOVE;
    };
    g_source_set_callback(limit.get(), timeIsOver, this, nullptr);
    g_source_attach(limit.get(), nullptr);
  }
  Request(const Request&) = delete;
  Request& operator=(const Request&) = delete;
  ~Request() { g_source_destroy(limit.get()); }

  /// Begins to wait anew.
  void wait() {
    const auto time = std::chrono::duration_cast<std::chrono::microseconds>(extensionTime);
    g_source_set_ready_time(limit.get(), g_get_monotonic_time() + time.count());
  }

  Companion& companion;
  std::int64_t number;
  BusInvocation invocation;
  DesktopSupport::SourceHandle limit;
  CompanionAnswer answer;
  std::size_t size = 0;
};

std::expected<std::unique_ptr<Companion>, std::string> Companion::create(const DesktopSupport::SessionBus& bus,
                                                                         Port port) {
  const std::string name = BrowserSessions::companionName(port.browser, getpid());
  std::unique_ptr<Companion> companion(new Companion(bus, std::move(port)));
  const auto isOwner = DesktopSupport::BusDaemon(bus, busTime).requestName(name);
  if (!isOwner)
    return std::unexpected(isOwner.error().message);
  if (!*isOwner)
    return std::unexpected(name + " is taken already.");
  return companion;
}

Companion::Companion(DesktopSupport::SessionBus bus, Port port)
    : bus_(std::move(bus)), port_(std::move(port)), loop_(g_main_loop_new(nullptr, /*is_running=*/FALSE)) {
  object_ = bus_.serve(BrowserSessions::companionPath, BrowserSessions::companionIntrospection, /*context=*/nullptr,
                       [this](BusInvocation invocation) { add(std::move(invocation)); });
  bus_.setWhenClosed([this] { end(std::unexpected("The session bus is gone.")); });
  input_.reset(g_unix_fd_source_new(port_.input, static_cast<GIOCondition>(G_IO_IN | G_IO_HUP | G_IO_ERR)));
  const auto inputCame = +[](gint, GIOCondition, gpointer self) -> gboolean {
    static_cast<Companion*>(self)->readPort();
    return G_SOURCE_CONTINUE;
  };
  g_source_set_callback(input_.get(), G_SOURCE_FUNC(inputCame), this, nullptr);
  g_source_attach(input_.get(), nullptr);
}

Companion::~Companion() {
  while (!requests_.empty())
    refuse(requests_.begin()->first, BusErrorName::noReply, "The browser has closed the port.");
  g_source_destroy(input_.get());
  bus_.setWhenClosed(nullptr);
  DesktopSupport::BusDaemon(bus_, busTime).synchronize();
}

std::expected<void, std::string> Companion::run() {
  if (result_)
    g_main_loop_run(loop_.get());
  return result_;
}

void Companion::add(BusInvocation invocation) {
  if (requests_.size() >= mostRequests)
    return invocation.refuse(
        {.name = std::string(BusErrorName::limitsExceeded), .message = "Too many callers wait for the browser."});
  const std::int64_t number = ++count_;
  requests_.emplace(number, std::make_unique<Request>(*this, number, std::move(invocation)));
  if (isGreeted_)
    ask(number);
}

void Companion::ask(std::int64_t number) {
  if (!writeMessage(port_.output, requestMessage(number)))
    end({});
}

void Companion::readPort() {
  std::array<char, 1 << 16> bytes = {};
  const ssize_t count = read(port_.input, bytes.data(), bytes.size());
  if (count < 0 && (errno == EINTR || errno == EAGAIN))
    return;
  if (count <= 0)
    return end({});
  reader_.add({bytes.data(), static_cast<std::size_t>(count)});
  for (;;) {
    auto message = reader_.next();
    if (!message)
      return end(std::unexpected(std::move(message.error())));
    std::optional<std::string>& complete = *message;
    if (!complete)
      return;
    receive(std::move(*complete));
  }
}

void Companion::receive(std::string text) {
  auto message = extensionMessage(std::move(text));
  if (!message)
    return end(std::unexpected(std::move(message.error())));
  std::visit([this](auto&& each) { take(std::forward<decltype(each)>(each)); }, std::move(*message));
}

void Companion::take(const Greeting& greeting) {
  if (greeting.version != messageVersion)
    return end(std::unexpected("The extension speaks version " + std::to_string(greeting.version) +
                               ", and gleanery-tabs version " + std::to_string(messageVersion) +
                               ". Install both from the same release."));
  if (std::exchange(isGreeted_, true))
    return;
  for (const auto& [number, request] : requests_)
    ask(number);
}

void Companion::take(AnswerPart part) {
  const auto found = requests_.find(part.request);
  if (found == requests_.end())
    return;
  Request& request = *found->second;
  request.wait();
  for (CompanionWindow& window : part.windows) {
    request.size += window.tabs.size();
    append(request.answer, std::move(window));
  }
  if (request.size > longestAnswer)
    return refuse(part.request, BusErrorName::limitsExceeded, "The browser has too many tabs.");
  if (!part.isLast)
    return;
  request.answer.browser = static_cast<std::uint32_t>(port_.browser);
  request.answer.extension = port_.extension;
  request.invocation.answer(DesktopSupport::owned(variantFrom(request.answer)));
  requests_.erase(found);
  if (requests_.empty())
    malloc_trim(0);
}

void Companion::take(const Refusal& refusal) {
  refuse(refusal.request, "org.freedesktop.DBus.Error.Failed", refusal.reason);
}

void Companion::refuse(std::int64_t number, std::string_view error, const std::string& reason) {
  const auto request = requests_.extract(number);
  if (request)
    request.mapped()->invocation.refuse({.name = std::string(error), .message = reason});
}

void Companion::end(std::expected<void, std::string> result) {
  if (!result)
    writeMessage(port_.output, refusalMessage(result.error()));
  result_ = std::move(result);
  g_source_destroy(input_.get());
  g_main_loop_quit(loop_.get());
}

}  // namespace BrowserCompanion
