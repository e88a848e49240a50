#pragma once

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

namespace TestSupport {

/// A session bus with low limits: an application may wait for 16 replies at a time, and the bus starts one program at a
/// time and queues 64 KiB for each connection. During its lifetime it is the session bus of this process and its
/// children.
class StrictBus {
 public:
  StrictBus();

 private:
  TemporaryFolder folder_;
  ChildProcess daemon_;
  EnvironmentVariable address_;
};

}  // namespace TestSupport
