#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Fake/Events.h"
#include "Platform/ScriptEngine.h"

namespace Platform::Fake {

/// An interpreter that notes the sources it is given and answers what the test has told it to.
class FakeScriptEngine : public ScriptEngine {
 public:
  /// Adds the scripts to `events` as well, unless that is null.
  explicit FakeScriptEngine(Events* events = nullptr) : events_(events) {}

  std::optional<ScriptOutcome> run(std::string_view source) override;

  /// Answers every script with this text.
  void answerText(std::string text);
  /// Answers every script with success, without a result.
  void answerNothing();
  /// Answers every script with a result that has no text.
  void answerWithoutText();
  /// Fails every script with this error.
  void fail(int number, std::string message);
  /// Refuses to make a script of any source.
  void refuse();

  /// What answers a script; at first, success without a result.
  std::function<std::optional<ScriptOutcome>(std::string_view source)> answer;
  /// The sources run so far.
  std::vector<std::string> sources;

 private:
  Events* events_;
};

}  // namespace Platform::Fake
