#pragma once

#include <string>
#include <vector>

#include "Tests/Support/ChildProcess.h"

namespace TestSupport {

/// The development host, which runs on the session bus during the lifetime of this object.
class HostProcess {
 public:
  /// Starts `program` with these options and waits until it owns its name.
  explicit HostProcess(const std::string& program, std::vector<std::string> options = {});

  /// Waits for the next line that it prints. That is the next URL that it receives, unless it was told to print more.
  std::string nextLine();

  /// The lines printed so far that have not been read. Sends the host a URL and reads until it is printed.
  std::vector<std::string> linesSoFar();

  /// Stops the process, as if it hung, and waits until it has stopped.
  void hang() const;

  /// Kills it, as if it crashed.
  void crash() const;

 private:
  ChildProcess process_;
};

}  // namespace TestSupport
