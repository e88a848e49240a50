#pragma once

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

namespace TestSupport {

/// A session bus with low limits: an application may wait for 16 replies at a time, the bus starts one program at a
/// time and holds 64 KiB for each connection. It is the session bus of this process, and of what it starts, until the
/// end of its scope.
class StrictBus {
 public:
  StrictBus();

 private:
  TemporaryFolder folder_;
  ChildProcess daemon_;
  EnvironmentVariable address_;
};

}  // namespace TestSupport
