#pragma once

#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "DesktopSupport/System/GLibHandles.h"
#include "Tests/Support/GIOHandles.h"
#include "Tests/Support/ServingThread.h"

namespace TestSupport {

/// A program on the session bus, on its own connection and thread. It gives the answers that a test sets, and records
/// the calls.
class FakeService {
 public:
  /// Answers or refuses a call, or keeps the invocation and never answers. Runs on the service's thread.
  using Answer = std::function<void(GDBusMethodInvocation* invocation)>;

  /// An object at `path` that has the interfaces in the XML.
  struct Object {
    std::string path;
    const char* description;
  };

  /// Takes the name on the bus, with these objects. No two of their interfaces may have a method of the same name.
  /// Signals belong to the first object's first interface. Throws if that fails.
  FakeService(std::string name, const std::vector<Object>& objects);
  FakeService(std::string name, std::string path, const char* description)
      : FakeService(std::move(name), {{.path = std::move(path), .description = description}}) {}
  FakeService(const FakeService&) = delete;
  FakeService& operator=(const FakeService&) = delete;
  ~FakeService();

  /// Sets the answer to a method, before it is called. A method without an answer is refused.
  void answer(const std::string& method, Answer answer);

  /// Sets a fixed answer: a tuple in GVariant's text form, "(true, 'text')".
  void answer(const std::string& method, const std::string& tuple);

  /// Sets a fixed answer that may have the wrong type.
  void answerUnchecked(const std::string& method, const std::string& tuple);

  /// Removes the answer to a method.
  void refuse(const std::string& method);

  /// The calls so far, as "Method('argument', 'argument')".
  [[nodiscard]] std::vector<std::string> calls() const;

  /// Waits until a call of the method has been answered, and returns the latest. Throws if it takes too long.
  [[nodiscard]] std::string awaitCall(const std::string& method);

  /// Waits until this many calls of the method have been answered. Throws if it takes too long.
  void awaitCalls(const std::string& method, long count);

  /// Emits a signal with a tuple in GVariant's text form.
  void emit(const char* signal, const std::string& tuple) const;

  /// Closes the connection, as if the program crashed. What it sent before still arrives. May be called on the
  /// service's thread.
  void disappear() const;

 private:
  static void handleCall(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* method,
                         GVariant* arguments, GDBusMethodInvocation* invocation, gpointer service);
  void exportObject(const Object& object);
  void ownName();
  [[nodiscard]] Answer noteCall(std::string call, const std::string& method);

  std::string name_;
  std::string path_;
  std::string interface_;
  DesktopSupport::MainContextHandle context_;
  ObjectHandle<GDBusConnection> connection_;
  mutable std::mutex mutex_;
  std::condition_variable answered_;
  std::map<std::string, Answer> answers_;
  std::vector<std::string> calls_;
  /// How many calls have been answered. Their answers arrive before anything that is sent from now on.
  std::size_t answeredCalls_ = 0;
  std::optional<ServingThread> thread_;
};

}  // namespace TestSupport
