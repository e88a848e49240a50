#pragma once

#include <cstddef>

#include "Tests/Support/ChildProcess.h"

namespace TestSupport {

/// Follows the window manager's list of windows.
class ClientList {
 public:
  ClientList();

  /// Waits until the list has `count` windows.
  void awaitCount(std::size_t count);

 private:
  ChildProcess spy_;
};

}  // namespace TestSupport
