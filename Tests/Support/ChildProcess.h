#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "Tests/Support/Patience.h"

namespace TestSupport {

/// Options for starting a program.
struct ChildProcessOptions {
  /// Variables to set. A variable with an empty value is unset.
  std::map<std::string, std::string> environment = {};
  /// Whether the output includes standard error.
  bool captureErrors = false;
  /// Whether the processes that the program starts, such as a browser's helpers, count as part of it. They are then
  /// killed with it, and `wait` waits for their end too, after which its files no longer change.
  bool hasHelpers = false;
};

/// A program that a test has started. The destructor kills it. An operation that waits for the program throws if
/// nothing happens for longer than `atMost`; the error says what was awaited, and what the output was before.
class ChildProcess {
 public:
  using Options = ChildProcessOptions;
  using Duration = std::chrono::milliseconds;

  /// Starts `arguments[0]`, looked up in PATH, with its standard output in a pipe. Fails the test if it cannot be
  /// started.
  explicit ChildProcess(const std::vector<std::string>& arguments, const Options& options = {});
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess(ChildProcess&& other) noexcept;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ChildProcess& operator=(ChildProcess&&) = delete;
  ~ChildProcess();

  /// Waits for the next line of its output, without the line feed. `nullopt` at the end of the output.
  std::optional<std::string> readLine(Duration atMost = patience);

  /// The rest of its output.
  std::string readAll(Duration atMost = patience);

  /// Waits for its end and returns its exit status, or 128 and the signal's number if a signal ended it.
  int wait(Duration atMost = patience);

  [[nodiscard]] pid_t pid() const { return pid_; }

 private:
  /// Appends to the buffer. Returns false at the end of the output. `awaited` is for the error.
  bool readMore(Duration atMost, const std::string& awaited);
  [[nodiscard]] std::string outputSoFar() const;
  int takeExitStatus();

  std::string program_;
  pid_t pid_ = -1;
  /// The process to wait for: the program, or the keeper of the program and its helpers.
  pid_t waited_ = -1;
  int output_ = -1;
  std::string buffer_;
  /// The lines read so far, shortened.
  std::vector<std::string> lines_;
};

/// Runs a program to its end and returns its exit status.
int run(const std::vector<std::string>& arguments, const ChildProcess::Options& options = {});

}  // namespace TestSupport
