#pragma once

#include <functional>

#include <sys/types.h>

namespace TestSupport {

/// A program, and the process that keeps track of all processes that the program starts.
struct KeptProgram {
  pid_t program = -1;
  /// A child of this process. When the program ends, the keeper kills the processes that remain, waits for their end,
  /// and ends with the program's exit status, or 128 and the signal's number. On SIGTERM it kills all of them.
  pid_t keeper = -1;
};

/// Starts a program whose helper processes may outlive it. `become` runs in the new process and does not return. Throws
/// if no process can be started.
KeptProgram startKept(const std::function<void()>& become);

/// The exit status as a shell reports it: 128 and the signal's number if a signal ended the process.
int exitStatus(int waitStatus);

}  // namespace TestSupport
