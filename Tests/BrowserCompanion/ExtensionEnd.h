#pragma once

#include <cstdint>
#include <cstring>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include <unistd.h>

#include "BrowserSessions/Companion/CompanionAnswer.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/Text.h"
#include "Tests/Support/BusNames.h"
#include "Tests/Support/GIOHandles.h"

/// The program gleanery-tabs, started as by a browser, and the end of its port at which a browser has the extension.
class ExtensionEnd {
 public:
  using json = nlohmann::json;

  explicit ExtensionEnd(std::vector<std::string> arguments = {"chrome-extension://id/"}) {
    arguments.insert(arguments.begin(), GLEANERY_TABS_PROGRAM);
    std::vector<const char*> texts;
    for (const std::string& argument : arguments)
      texts.push_back(argument.c_str());
    texts.push_back(nullptr);
    constexpr auto flags = static_cast<GSubprocessFlags>(
        G_SUBPROCESS_FLAGS_STDIN_PIPE | G_SUBPROCESS_FLAGS_STDOUT_PIPE | G_SUBPROCESS_FLAGS_STDERR_PIPE);
    process_.reset(g_subprocess_newv(texts.data(), flags, nullptr));
    if (!process_)
      throw std::runtime_error("gleanery-tabs cannot be started");
    // A program that has ended already has none.
    if (const char* const identifier = g_subprocess_get_identifier(process_.get()))
      pid_ = DesktopSupport::parseNumber<pid_t>(identifier).value();
  }
  ExtensionEnd(const ExtensionEnd&) = delete;
  ExtensionEnd& operator=(const ExtensionEnd&) = delete;
  ~ExtensionEnd() {
    g_subprocess_force_exit(process_.get());
    g_subprocess_wait(process_.get(), nullptr, nullptr);
  }

  [[nodiscard]] pid_t pid() const { return pid_; }
  [[nodiscard]] std::string name() const { return BrowserSessions::companionName(getpid(), pid_); }

  void awaitName() const { TestSupport::awaitOwner(name()); }

  void sendBytes(const std::string& bytes) {
    g_output_stream_write_all(g_subprocess_get_stdin_pipe(process_.get()), bytes.data(), bytes.size(), nullptr, nullptr,
                              nullptr);
  }
  void send(const std::string& message) {
    const auto length = static_cast<std::uint32_t>(message.size());
    std::string bytes(sizeof length, '\0');
    std::memcpy(bytes.data(), &length, sizeof length);
    sendBytes(bytes + message);
  }
  void send(const json& message) { send(message.dump()); }

  /// The next message from the program; null at the end.
  json receive() {
    std::uint32_t length = 0;
    if (read(&length, sizeof length) < sizeof length)
      return {};
    std::string message(length, '\0');
    read(message.data(), length);
    return json::parse(message);
  }

  /// Closes the port, as a browser does.
  void close() { g_output_stream_close(g_subprocess_get_stdin_pipe(process_.get()), nullptr, nullptr); }

  /// Waits for the program's end and returns its exit status.
  int wait() {
    g_subprocess_wait(process_.get(), nullptr, nullptr);
    return g_subprocess_get_if_exited(process_.get()) != FALSE ? g_subprocess_get_exit_status(process_.get()) : -1;
  }

  /// What the program writes to standard error until it ends.
  std::string errors() { return textOf(g_subprocess_get_stderr_pipe(process_.get())); }
  /// The rest of its output.
  std::string output() { return textOf(g_subprocess_get_stdout_pipe(process_.get())); }

 private:
  std::size_t read(void* bytes, std::size_t length) {
    gsize count = 0;
    g_input_stream_read_all(g_subprocess_get_stdout_pipe(process_.get()), bytes, length, &count, nullptr, nullptr);
    return count;
  }
  static std::string textOf(GInputStream* stream) {
    std::string text(1 << 16, '\0');
    gsize count = 0;
    g_input_stream_read_all(stream, text.data(), text.size(), &count, nullptr, nullptr);
    text.resize(count);
    return text;
  }

  TestSupport::ObjectHandle<GSubprocess> process_;
  pid_t pid_ = 0;
};
