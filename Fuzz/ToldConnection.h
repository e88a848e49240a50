#pragma once

#include <string_view>

#include "BrowserSessions/LocalConnection.h"
#include "Tests/BrowserSessions/FakeServer.h"

namespace Fuzz {

/// A connection to a server that says all it has to say at once, whatever it is asked: nobody waits for anything.
class ToldConnection {
 public:
  /// `told`, and all that the client will say, must fit into a socket's buffer.
  explicit ToldConnection(std::string_view told);
  ToldConnection(const ToldConnection&) = delete;
  ToldConnection& operator=(const ToldConnection&) = delete;
  ~ToldConnection();

  /// The client's end, which can be taken once.
  [[nodiscard]] BrowserSessions::LocalConnection takeClient();

  /// The server's end, which tells what the client has said. Reading ends there once the client has gone.
  [[nodiscard]] BrowserSessions::FakeServer::Connection server() const;

 private:
  DesktopSupport::ObjectHandle<GSocket> client_;
  int server_ = -1;
};

}  // namespace Fuzz
