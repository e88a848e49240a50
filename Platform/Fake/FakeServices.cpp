#include "Platform/Fake/FakeServices.h"

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

void FakeWorkspace::open(URL url) {
  const std::lock_guard lock(mutex_);
  opened.push_back(url.absoluteString());
  note(events_, "open " + opened.back());
}

void FakeAlerts::runModal(const Alert& alert) {
  if (application_ != nullptr && application_->isTerminating())
    return note(events_, "no alert " + alert.messageText);
  shown.push_back(alert);
  note(events_, "alert " + alert.messageText);
  if (whileShown)
    whileShown(alert);
}

void FakeUpdater::checkForUpdatesInBackground() {
  ++checks;
  note(events_, "check for updates");
}

void FakeLog::write(std::string_view message) {
  messages.emplace_back(message);
  note(events_, "log " + messages.back());
}

std::optional<std::string> FakeBundle::information(std::string_view key) const {
  const auto found = entries.find(key);
  return found == entries.end() ? std::nullopt : std::optional(found->second);
}

std::string FakeStrings::localized(std::string_view key, std::string_view comment) const {
  comments.insert_or_assign(std::string(key), std::string(comment));
  const auto found = translations.find(key);
  return found == translations.end() ? std::string(key) : found->second;
}

}  // namespace Platform::Fake
