#pragma once

#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "DesktopSupport/System/GLibHandles.h"
#include "Tests/Support/ServingThread.h"

namespace TestSupport {

/// A program on the session bus with one object, on a connection and a thread of its own. It answers as the test says
/// and remembers what it was asked.
class FakeService {
 public:
  /// Answers a call, or refuses it, or keeps the invocation (and answers never). Runs on the service's thread.
  using Answer = std::function<void(GDBusMethodInvocation* invocation)>;

  /// Has the name on the bus, and at `path` the object with the interfaces that the XML describes, no two of which have
  /// a method of the same name. Signals are the first one's. Throws if that fails.
  FakeService(std::string name, std::string path, const char* description);
  FakeService(const FakeService&) = delete;
  FakeService& operator=(const FakeService&) = delete;
  ~FakeService();

  /// How a method is answered; one without an answer is refused with an error. To be said before it is called.
  void answer(const std::string& method, Answer answer);

  /// The same with a fixed tuple in GVariant's text form: "(true, 'text')".
  void answer(const std::string& method, const std::string& tuple);

  /// The same, past the check that would keep a program from answering a tuple of the wrong type.
  void answerUnchecked(const std::string& method, const std::string& tuple);

  /// A method that had an answer has none any more.
  void refuse(const std::string& method);

  /// What was asked so far, as "Method('argument', 'argument')".
  [[nodiscard]] std::vector<std::string> calls() const;

  /// Waits until a call of the method has been answered, and yields the latest one. Throws if none comes in time.
  [[nodiscard]] std::string awaitCall(const std::string& method);

  /// Waits until so many calls of the method have been answered.
  void awaitCalls(const std::string& method, long count);

  /// Tells everybody of a signal, with a tuple in GVariant's text form.
  void emit(const char* signal, const std::string& tuple) const;

  /// Closes the connection, as a program does that crashes; what it has said before still arrives. May be called on the
  /// service's thread.
  void disappear() const;

 private:
  static void handleCall(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* method,
                         GVariant* arguments, GDBusMethodInvocation* invocation, gpointer service);
  void exportObject(const char* description);
  void ownName();
  [[nodiscard]] Answer noteCall(std::string call, const std::string& method);

  std::string name_;
  std::string path_;
  std::string interface_;
  DesktopSupport::MainContextHandle context_;
  DesktopSupport::ObjectHandle<GDBusConnection> connection_;
  mutable std::mutex mutex_;
  std::condition_variable answered_;
  std::map<std::string, Answer> answers_;
  std::vector<std::string> calls_;
  /// How many of the calls have been answered: their answers are on the way in front of whatever is said next.
  std::size_t answeredCalls_ = 0;
  std::optional<ServingThread> thread_;
};

}  // namespace TestSupport
