#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Platform/Text/URL.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

/// A web server on this machine, with a self-signed certificate for 127.0.0.1.
class HTTPSServer {
 public:
  enum class Answers { fromFiles, byHand };

  explicit HTTPSServer(Answers answers = Answers::fromFiles)
      : certificate_(makeCertificate()), process_(start(answers)), address_(awaitAddress()) {}

  /// Answers requests for /name with this: a status, header lines and a body.
  void serve(const std::string& name, const std::string& status, const std::vector<std::string>& headers,
             std::string_view body = "") const {
    std::string response = "HTTP/1.1 " + status + "\r\nConnection: close\r\n";
    for (const std::string& header : headers)
      response += header + "\r\n";
    folder_.write(name, response.append("\r\n").append(body));
  }

  /// Answers successfully, with the body's length.
  void serve(const std::string& name, std::string_view body) const {
    serve(name, "200 OK", {"Content-Length: " + std::to_string(body.size())}, body);
  }

  [[nodiscard]] Platform::URL url(const std::string& name) const {
    return *Platform::URL::parse("https://" + address_ + '/' + name);
  }

  /// By hand: the lines of the next request's header.
  std::vector<std::string> awaitRequest() {
    std::vector<std::string> lines;
    while (const auto line = process_.readLine()) {
      if (line == "\r" && !lines.empty())
        break;
      if (!lines.empty() || line->starts_with("GET "))
        lines.push_back(line->substr(0, line->find('\r')));
    }
    return lines;
  }

  /// By hand: sends the text.
  void say(std::string_view text) const { folder_.write("answers", text); }

  [[nodiscard]] std::string port() const { return address_.substr(address_.find(':') + 1); }
  [[nodiscard]] std::filesystem::path certificate() const { return certificate_; }

 private:
  std::filesystem::path makeCertificate() const {
    TestSupport::run({"openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes",
                      "-keyout", folder_.path() / "key.pem", "-out", folder_.path() / "certificate.pem", "-days", "2",
                      "-subj", "/CN=test", "-addext", "subjectAltName=IP:127.0.0.1"},
                     {.captureErrors = true});
    return folder_.path() / "certificate.pem";
  }

  /// By hand, the server prints what it receives and sends what comes from a pipe, which it keeps open itself.
  TestSupport::ChildProcess start(Answers answers) const {
    mkfifo((folder_.path() / "answers").c_str(), 0600);
    const std::string mode = answers == Answers::fromFiles ? " -HTTP" : "";
    return TestSupport::ChildProcess(
        {"env", "-C", folder_.path(), "sh", "-c",
         "exec openssl s_server -accept 127.0.0.1:0 -cert certificate.pem -key key.pem" + mode + " <>answers"},
        {.captureErrors = true});
  }

  std::string awaitAddress() {
    constexpr std::string_view announcement = "ACCEPT ";
    while (const auto line = process_.readLine())
      if (line->starts_with(announcement))
        return line->substr(announcement.size());
    ADD_FAILURE() << "the web server did not start";
    return "127.0.0.1:0";
  }

  TestSupport::TemporaryFolder folder_;
  std::filesystem::path certificate_;
  TestSupport::ChildProcess process_;
  std::string address_;
  TestSupport::EnvironmentVariable noProxy_{"no_proxy", "*"};
};
