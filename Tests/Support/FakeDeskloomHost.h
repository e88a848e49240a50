#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "DesktopSupport/GLibHandles.h"

namespace TestSupport {

/// Stands in for the host on the session bus, on a connection and a thread of its own: com.quillary.Deskloom with its
/// scripting interface, which answers as the test says.
class FakeDeskloomHost {
 public:
  /// Answers a call, or refuses it, or keeps the invocation (and answers never). Runs on the host's thread.
  using Answer = std::function<void(GDBusMethodInvocation* invocation, GVariant* arguments)>;

  /// Appears on the bus; throws where that fails.
  FakeDeskloomHost();
  ~FakeDeskloomHost();
  FakeDeskloomHost(const FakeDeskloomHost&) = delete;
  FakeDeskloomHost& operator=(const FakeDeskloomHost&) = delete;

  /// How `method` is answered; one without an answer is refused with an error. To be said before it is called.
  void answer(const std::string& method, Answer answer);

  /// The same with a fixed tuple in GVariant's text form: "(true, 'text')".
  void answer(const std::string& method, const std::string& tuple);

  /// The same, past the check that would keep a host from answering a tuple of the wrong type.
  void answerUnchecked(const std::string& method, const std::string& tuple);

  /// What was called so far, as "Method('argument', 'argument')".
  [[nodiscard]] std::vector<std::string> calls() const;

  /// Closes the host's connection, as one does that crashes. May be called on the host's thread.
  void disappear();

 private:
  static void handleCall(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* method,
                         GVariant* arguments, GDBusMethodInvocation* invocation, gpointer host);
  void ownName();

  DesktopSupport::MainContextHandle context_;
  DesktopSupport::MainLoopHandle loop_;
  DesktopSupport::ObjectHandle<GDBusConnection> connection_;
  mutable std::mutex mutex_;
  std::map<std::string, Answer> answers_;
  std::vector<std::string> calls_;
  std::thread thread_;
};

}  // namespace TestSupport
