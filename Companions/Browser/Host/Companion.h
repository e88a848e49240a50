#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <map>
#include <memory>
#include <string>

#include <sys/types.h>

#include "BrowserSessions/Companion/CompanionAnswer.h"
#include "Companions/Browser/Host/ExtensionMessage.h"
#include "Companions/Browser/Host/NativeMessages.h"
#include "DesktopSupport/Bus/SessionBus.h"

namespace BrowserCompanion {

/// The ends of the port to the extension, and who is at its other end.
struct Port {
  /// File descriptors, which stay the caller's.
  int input = 0;
  int output = 1;
  /// The browser's process.
  pid_t browser = 0;
  std::string extension = {};
};

/// Answers on the session bus what the extension at the other end of a port tells. It asks the extension when it is
/// asked itself, and keeps nothing.
class Companion {
 public:
  /// How long the extension may be silent before it has answered.
  static constexpr std::chrono::milliseconds extensionTime{2500};
  /// How many callers may wait at a time.
  static constexpr std::size_t mostRequests = 64;
  /// The most bytes of titles and addresses that one answer has. D-Bus limits the whole to 128 MiB.
  static constexpr std::size_t longestAnswer = 48 << 20;

  /// Takes the name on the bus. Fails with a sentence if the bus refuses.
  static std::expected<std::unique_ptr<Companion>, std::string> create(const DesktopSupport::SessionBus& bus,
                                                                       Port port);
  Companion(const Companion&) = delete;
  Companion& operator=(const Companion&) = delete;
  ~Companion();

  /// Answers until the browser closes the port. Fails with a sentence if the extension cannot be served, or the bus is
  /// gone.
  std::expected<void, std::string> run();

 private:
  struct Request;
  using Requests = std::map<std::int64_t, std::unique_ptr<Request>>;

  Companion(DesktopSupport::SessionBus bus, Port port);
  void add(DesktopSupport::BusInvocation invocation);
  void ask(std::int64_t number);
  void readPort();
  void receive(std::string text);
  void take(const Greeting& greeting);
  void take(AnswerPart part);
  void take(const Refusal& refusal);
  void refuse(std::int64_t number, std::string_view error, const std::string& reason);
  void end(std::expected<void, std::string> result);

  DesktopSupport::SessionBus bus_;
  Port port_;
  MessageReader reader_;
  bool isGreeted_ = false;
  std::int64_t count_ = 0;
  Requests requests_;
  std::expected<void, std::string> result_;
  DesktopSupport::MainLoopHandle loop_;
  DesktopSupport::SourceHandle input_;
  std::unique_ptr<DesktopSupport::ServedObject> object_;
};

}  // namespace BrowserCompanion
