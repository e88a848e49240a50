#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>

#include <sys/socket.h>
#include <sys/un.h>

#include "DesktopSupport/System/FileDescriptor.h"
#include "Tests/Support/TemporaryFolder.h"

namespace TestSupport {

/// A bus that accepts connections and never sends anything.
class SilentBus {
 public:
  SilentBus() : socket_(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_un name = {.sun_family = AF_UNIX, .sun_path = {}};
    const std::string path = folder_.path() / "bus";
    std::ranges::copy(path, name.sun_path);
    if (path.size() >= sizeof name.sun_path ||
        bind(socket_.number(), reinterpret_cast<const sockaddr*>(&name), sizeof name) != 0 ||
        listen(socket_.number(), 8) != 0)
      throw std::runtime_error("no socket to listen at");
    address_ = "unix:path=" + path;
  }

  [[nodiscard]] const std::string& address() const { return address_; }

 private:
  TemporaryFolder folder_;
  DesktopSupport::FileDescriptor socket_;
  std::string address_;
};

}  // namespace TestSupport
