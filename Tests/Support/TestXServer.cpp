#include "Tests/Support/TestXServer.h"

#include <csignal>
#include <stdexcept>

namespace TestSupport {

TestXServer::TestXServer()
    : server_({"Xvfb", "-displayfd", "1", "-screen", "0", "640x480x24", "-nolisten", "tcp", "-noreset"}) {
  // The server tells the number of its display once it takes connections.
  const auto number = server_.readLine();
  if (!number)
    throw std::runtime_error("Xvfb did not start");
  display_ = std::make_unique<EnvironmentVariable>("DISPLAY", ":" + *number);
}

// Killed outright, it would leave its socket and lock files behind.
TestXServer::~TestXServer() {
  kill(server_.pid(), SIGTERM);
  server_.wait();
}

}  // namespace TestSupport
