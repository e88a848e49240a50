#pragma once

#include <memory>

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/EnvironmentVariable.h"

namespace TestSupport {

/// An X server of the test's own, without a window manager. DISPLAY names it until the end of its scope.
class TestXServer {
 public:
  TestXServer();
  TestXServer(const TestXServer&) = delete;
  TestXServer& operator=(const TestXServer&) = delete;
  ~TestXServer();

  [[nodiscard]] pid_t pid() const { return server_.pid(); }

 private:
  ChildProcess server_;
  std::unique_ptr<EnvironmentVariable> display_;
};

}  // namespace TestSupport
