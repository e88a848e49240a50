#pragma once

#include <string>
#include <string_view>

#include "BrowserSessions/Chromium/DevTools/LocalConnection.h"

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

  /// What the client has said. The client must have gone, or there would be more to come.
  [[nodiscard]] std::string heard() const;

 private:
  DesktopSupport::ObjectHandle<GSocket> client_;
  int server_ = -1;
};

}  // namespace Fuzz
