#pragma once

#include <string>
#include <string_view>

#include "BrowserSessions/Chromium/DevTools/LocalConnection.h"

namespace Fuzz {

/// A connection to a server that sends everything at once, whatever the client asks, so that neither side waits.
class ToldConnection {
 public:
  /// `told` is what the server sends. It must fit into a socket's buffer, and so must all that the client sends.
  explicit ToldConnection(std::string_view told);
  ToldConnection(const ToldConnection&) = delete;
  ToldConnection& operator=(const ToldConnection&) = delete;
  ~ToldConnection();

  /// The client's end. It can be taken once.
  [[nodiscard]] BrowserSessions::LocalConnection takeClient();

  /// What the client has sent. The client must have closed its end.
  [[nodiscard]] std::string heard() const;

 private:
  std::unique_ptr<DesktopSupport::FileDescriptor> client_;
  int server_ = -1;
};

}  // namespace Fuzz
