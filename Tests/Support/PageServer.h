#pragma once

#include <optional>
#include <string>

#include "DesktopSupport/System/GLibHandles.h"
#include "Tests/Support/ServingThread.h"

namespace TestSupport {

/// A web server on this machine. It has each page that it is asked for: the one at /a is titled "Page a".
/// A script in the page puts each character that is typed there behind the title, and with the Enter key it goes on to
/// the page at /a1.
class PageServer {
 public:
  /// Throws where there is no port for it.
  PageServer();
  PageServer(const PageServer&) = delete;
  PageServer& operator=(const PageServer&) = delete;
  ~PageServer();

  /// The address of its page with this name: "http://127.0.0.1:…/name".
  [[nodiscard]] std::string url(const std::string& name = "") const;

 private:
  DesktopSupport::MainContextHandle context_;
  DesktopSupport::ObjectHandle<GSocketService> service_;
  std::string address_;
  std::optional<ServingThread> thread_;
};

}  // namespace TestSupport
