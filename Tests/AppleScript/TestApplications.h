#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "AppleScript/Script.h"
#include "AppleScript/Text/CaseFolding.h"
#include "AppleScript/Values/Application.h"
#include "Tests/AppleScript/TestDesk.h"
#include "Tests/AppleScript/TestHost.h"

namespace AppleScript::Testing {

inline std::shared_ptr<const TestRoot> someThings() {
  auto root = std::make_shared<TestRoot>();
  root->windows.emplace_back(
      "Start", 11, "/home/ann/",
      std::vector<TestTab>{{"News", "https://news.example/"}, {"Mail", "https://mail.example/"}});
  root->windows.emplace_back("Downloads", 12, "/home/ann/Downloads/", std::vector<TestTab>{{"Café", "about:blank"}});
  root->processes.emplace_back("xterm", false, "/usr/bin/xterm");
  root->processes.emplace_back("agent", true, "/usr/libexec/agent");
  root->processes.emplace_back("editor", false, "/usr/share/applications/editor.desktop");
  return root;
}

/// The made-up applications that the tests' scripts talk to.
class TestApplications : public ApplicationDirectory {
 public:
  explicit TestApplications(const std::shared_ptr<const TestRoot>& root = someThings()) {
    for (const char* name : {"Test Desk", "System Events", "Finder", "Safari", "Google Chrome"})
      desks_.push_back(std::make_unique<TestDesk>(name, root));
    desks_.push_back(std::make_unique<TestDesk>("Empty Desk", std::make_shared<TestRoot>()));
    desks_.push_back(std::make_unique<TestDesk>(
        "Closed Desk", ScriptError{.number = ErrorNumber::notRunning, .message = "Application isn’t running."}));
    desks_.push_back(std::make_unique<TestDesk>(
        "Slow Desk", ScriptError{.number = ErrorNumber::timedOut, .message = "AppleEvent timed out."}));
  }

  [[nodiscard]] Application* find(std::string_view name) override {
    for (const auto& desk : desks_)
      if (sameName(desk->name(), name))
        return desk.get();
    return sameName(host_.name(), name) ? &host_ : nullptr;
  }

  [[nodiscard]] TestDesk& desk() { return *desks_.front(); }
  [[nodiscard]] const TestHost& host() const { return host_; }

  /// Compiles and runs `source`.
  [[nodiscard]] Result<std::optional<Value>> run(std::string_view source) {
    const Result<Script> script = Script::compile(source, *this);
    return script ? script->run() : std::unexpected(script.error());
  }

 private:
  std::vector<std::unique_ptr<TestDesk>> desks_;
  TestHost host_;
};

}  // namespace AppleScript::Testing
