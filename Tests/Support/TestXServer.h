#pragma once

#include <memory>

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/EnvironmentVariable.h"

namespace TestSupport {

/// An X server without a window manager. DISPLAY names it during the lifetime of this object.
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
