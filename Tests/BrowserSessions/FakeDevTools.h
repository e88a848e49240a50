#pragma once

#include <atomic>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "Tests/BrowserSessions/FakeServer.h"
#include "Tests/BrowserSessions/FakeWebSocket.h"
#include "Tests/Support/TemporaryFolder.h"

namespace BrowserSessions {

/// A browser's DevTools on a port, with the calls for tabs and windows only.
class FakeDevTools {
 public:
  using json = nlohmann::json;
  /// The messages to send back for a call.
  using Messages = std::vector<std::string>;
  using Answer = std::function<Messages(const json& call)>;

  static constexpr const char* path = "/devtools/browser/0aba2e35-00c3";

  /// Listens on a port of its own, or serves the connections to a listening socket.
  explicit FakeDevTools(Answer answer, int listener = FakeServer::listenOnAnyPort())
      : answer_(std::move(answer)),
        server_([this](const FakeServer::Connection& client) { serve(client); }, listener) {}

  /// Answers with these tabs, each with its window as "window"; see `tab`.
  static FakeDevTools withTabs(std::vector<json> tabs, std::string mainProfile = "main") {
    return FakeDevTools([tabs = std::move(tabs), mainProfile = std::move(mainProfile)](const json& call) {
      return Messages{json{{"id", call["id"]}, {"result", result(call, tabs, mainProfile)}}.dump()};
    });
  }

  static json tab(const std::string& title, const std::string& url, int window, int index, bool isShown = false,
                  const std::string& profile = "main") {
    return {{"targetId", std::to_string(window) + '/' + std::to_string(index)},
            {"type", "tab"},
            {"title", title},
            {"url", url},
            {"browserContextId", profile},
            {"window", window},
            {"embedderData", {{"tabStripIndex", index}, {"tabActive", isShown}, {"tabPinned", false}}}};
  }

  static json result(const json& call, const std::vector<json>& tabs, const std::string& mainProfile) {
    if (call["method"] == "Target.getTargets" && call["params"]["filter"] == json::parse(R"([{"type": "tab"}])"))
      return {{"targetInfos", tabs}};
    if (call["method"] == "Target.getBrowserContexts")
      return {{"browserContextIds", json::array()}, {"defaultBrowserContextId", mainProfile}};
    for (const json& tab : tabs)
      if (call["method"] == "Browser.getWindowForTarget" && tab["targetId"] == call["params"]["targetId"])
        return {{"windowId", tab["window"]}, {"bounds", json::object()}};
    return nullptr;
  }

  [[nodiscard]] std::uint16_t port() const { return server_.port(); }

  /// The browser's note of the port in its user data folder.
  [[nodiscard]] std::string note() const { return std::to_string(server_.port()) + '\n' + path; }
  void noteIn(const TestSupport::TemporaryFolder& userData) const { userData.write("DevToolsActivePort", note()); }

  /// The number of WebSockets opened so far.
  [[nodiscard]] int webSockets() const { return webSockets_; }

 private:
  void serve(const FakeServer::Connection& client) {
    const FakeWebSocket socket(client);
    const std::string request = client.readTo("\r\n\r\n");
    if (request.starts_with("GET /json/version "))
      serveVersion(client);
    if (!request.starts_with("GET " + std::string(path) + ' '))
      return;
    ++webSockets_;
    client.write("HTTP/1.1 101 WebSocket\r\nSec-WebSocket-Accept: " + FakeWebSocket::acceptance(request) + "\r\n\r\n");
    for (auto call = socket.receive(); call.opcode == FakeWebSocket::text; call = socket.receive())
      for (const std::string& message : answer_(json::parse(call.payload)))
        socket.send(message);
  }

  void serveVersion(const FakeServer::Connection& client) const {
    const std::string address = "ws://127.0.0.1:" + std::to_string(server_.port()) + path;
    const std::string body = json{{"Browser", "Chrome/156"}, {"webSocketDebuggerUrl", address}}.dump();
    client.write("HTTP/1.1 200 OK\r\nContent-Length:" + std::to_string(body.size()) +
                 "\r\nContent-Type:application/json; charset=UTF-8\r\n\r\n" + body);
  }

  Answer answer_;
  std::atomic<int> webSockets_ = 0;
  FakeServer server_;
};

}  // namespace BrowserSessions
