#pragma once

#include <functional>

#include <sys/types.h>

namespace TestSupport {

/// A program and the process that keeps track of all that it starts.
struct KeptProgram {
  pid_t program = -1;
  /// A child of this process. It ends with the program's exit status (128 and the signal's number if a signal ended it)
  /// when the program and every process that it has left behind are gone. What is left when the program ends, and
  /// everything when the keeper is sent SIGTERM, is killed.
  pid_t keeper = -1;
};

/// Starts a program whose helper processes may outlive it. `become` runs in the new process and does not return. Throws
/// if it cannot be started.
KeptProgram startKept(const std::function<void()>& become);

/// The exit status that a shell would tell: 128 and the signal's number if a signal ended the process.
int exitStatus(int waitStatus);

}  // namespace TestSupport
