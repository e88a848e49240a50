#pragma once

#include <chrono>
#include <string>

#include <sys/types.h>

namespace Benchmarks {

/// The cost of a process.
struct Measurement {
  double milliseconds;
  double processorMilliseconds;
  double megabytes;
};

/// A shell command that runs as its own process, without output, and is measured from its start.
class MeasuredProcess {
 public:
  explicit MeasuredProcess(std::string command);

  /// The time since its start.
  [[nodiscard]] double milliseconds() const;

  /// Waits for its end and returns its duration, its processor time with that of the processes that it waited for, and
  /// the peak memory of the largest of them. Ends this program if the command fails.
  [[nodiscard]] Measurement end() const;

 private:
  std::string command_;
  std::chrono::steady_clock::time_point start_;
  pid_t pid_;
};

}  // namespace Benchmarks
