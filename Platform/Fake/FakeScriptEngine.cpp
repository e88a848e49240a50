#include "Platform/Fake/FakeScriptEngine.h"

#include <utility>

namespace Platform::Fake {

std::optional<ScriptOutcome> FakeScriptEngine::run(std::string_view source) {
  sources.emplace_back(source);
  note(events_, "script " + sources.back());
  return answer ? answer(source) : ScriptOutcome{};
}

void FakeScriptEngine::answerText(std::string text) {
  answer = [text = std::move(text)](std::string_view) { return ScriptOutcome{.result = ScriptOutcome::Result{text}}; };
}

void FakeScriptEngine::answerNothing() {
  answer = nullptr;
}

void FakeScriptEngine::answerWithoutText() {
  answer = [](std::string_view) { return ScriptOutcome{.result = ScriptOutcome::Result{}}; };
}

void FakeScriptEngine::fail(int number, std::string message) {
  answer = [number, message = std::move(message)](std::string_view) {
    return ScriptOutcome{.error = ScriptErrorInformation{.number = number, .message = message}};
  };
}

void FakeScriptEngine::refuse() {
  answer = [](std::string_view) { return std::nullopt; };
}

}  // namespace Platform::Fake
