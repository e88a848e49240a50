#include "Tests/Support/TestXServer.h"

#include <csignal>
#include <stdexcept>

namespace TestSupport {

TestXServer::TestXServer()
    : server_({"Xvfb", "-displayfd", "1", "-screen", "0", "640x480x24", "-nolisten", "tcp", "-noreset"}) {
  // The server prints the number of its display when it accepts connections.
  const auto number = server_.readLine();
  if (!number)
    throw std::runtime_error("Xvfb did not start");
  display_ = std::make_unique<EnvironmentVariable>("DISPLAY", ":" + *number);
}

// If it were killed, its socket and lock files would remain.
TestXServer::~TestXServer() {
  kill(server_.pid(), SIGTERM);
  server_.wait();
}

}  // namespace TestSupport
