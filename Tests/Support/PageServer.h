#pragma once

#include <optional>
#include <string>

#include "DesktopSupport/System/GLibHandles.h"
#include "Tests/Support/GIOHandles.h"
#include "Tests/Support/ServingThread.h"

namespace TestSupport {

/// A web server on this machine that has every page: the one at /a is titled "Page a". A script in the page appends
/// each typed character to the title; the Enter key leads to the page at /a1.
class PageServer {
 public:
  /// Throws if no port can be opened.
  PageServer();
  PageServer(const PageServer&) = delete;
  PageServer& operator=(const PageServer&) = delete;
  ~PageServer();

  /// The address of its page with this name: "http://127.0.0.1:…/name".
  [[nodiscard]] std::string url(const std::string& name = "") const;

 private:
  DesktopSupport::MainContextHandle context_;
  ObjectHandle<GSocketService> service_;
  std::string address_;
  std::optional<ServingThread> thread_;
};

}  // namespace TestSupport
