#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "Tests/Support/Patience.h"

namespace TestSupport {

/// How a program is started.
struct ChildProcessOptions {
  /// Variables to set; one with an empty value is taken away.
  std::map<std::string, std::string> environment = {};
  /// Whether standard error comes with the output.
  bool captureErrors = false;
  /// Whether the processes that the program starts, such as a browser's helpers, count as part of it. Then they are
  /// ended with it, and the wait for its end is a wait for theirs: after it, its files no longer change.
  bool hasHelpers = false;
};

/// A program that a test has started. It is ended with the test, by its process id. An operation that waits
/// for the program throws if nothing happens for longer than `atMost`, and says what was awaited and what came before.
class ChildProcess {
 public:
  using Options = ChildProcessOptions;
  using Duration = std::chrono::milliseconds;

  /// Starts `arguments[0]`, found along PATH, with its standard output in a pipe. Fails the test where it cannot.
  explicit ChildProcess(const std::vector<std::string>& arguments, const Options& options = {});
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess(ChildProcess&& other) noexcept;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ChildProcess& operator=(ChildProcess&&) = delete;
  ~ChildProcess();

  /// The next line of its output without the line feed, as soon as it is there; none once the output has ended.
  std::optional<std::string> readLine(Duration atMost = patience);

  /// All the rest of its output.
  std::string readAll(Duration atMost = patience);

  /// Waits for its end and yields its exit status; 128 and the signal's number where a signal ended it.
  int wait(Duration atMost = patience);

  [[nodiscard]] pid_t pid() const { return pid_; }

 private:
  /// Appends to the buffer; false once the output has ended. `awaited` is for the message.
  bool readMore(Duration atMost, const std::string& awaited);
  [[nodiscard]] std::string outputSoFar() const;
  int takeExitStatus();

  std::string program_;
  pid_t pid_ = -1;
  /// Whom to wait for: the program, or the keeper of the program and its helpers.
  pid_t waited_ = -1;
  int output_ = -1;
  std::string buffer_;
  /// The lines that were read, shortened.
  std::vector<std::string> lines_;
};

/// Runs a program to its end and yields its exit status.
int run(const std::vector<std::string>& arguments, const ChildProcess::Options& options = {});

}  // namespace TestSupport
