#pragma once

#include <chrono>
#include <string>

#include <sys/types.h>

namespace Benchmarks {

/// What a process took.
struct Measurement {
  double milliseconds;
  double processorMilliseconds;
  double megabytes;
};

/// A shell command that runs as a process of its own, without output, and is measured from its start.
class MeasuredProcess {
 public:
  explicit MeasuredProcess(std::string command);

  /// The time since its start.
  [[nodiscard]] double milliseconds() const;

  /// Waits for its end and yields its time from start to end, its processor time with that of the processes it has
  /// waited for, and the peak memory of the largest of them. Ends this program where the command fails.
  [[nodiscard]] Measurement end() const;

 private:
  std::string command_;
  std::chrono::steady_clock::time_point start_;
  pid_t pid_;
};

}  // namespace Benchmarks
