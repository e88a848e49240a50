#pragma once

#include <string>
#include <vector>

#include "Tests/Support/ChildProcess.h"

namespace TestSupport {

/// The development host, running on the session bus for as long as this lives.
class HostProcess {
 public:
  /// Starts `program` with these options and waits until it can be reached.
  explicit HostProcess(const std::string& program, std::vector<std::string> options = {});

  /// The next line that it prints, as soon as it does: the next URL that it receives, where it was told to print
  /// nothing else.
  std::string nextLine();

  /// The lines that it has printed so far and that nobody has taken: those in front of that of a URL that is sent to it
  /// now.
  std::vector<std::string> linesSoFar();

  /// Stops it where it is, as one that hangs; returns once it has stopped.
  void hang() const;

  /// Ends it as a crash would.
  void crash() const;

 private:
  ChildProcess process_;
};

}  // namespace TestSupport
