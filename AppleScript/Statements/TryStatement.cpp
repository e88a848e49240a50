#include "AppleScript/Statements/TryStatement.h"

#include <utility>

#include "AppleScript/Values/Failure.h"

namespace AppleScript {

TryStatement::TryStatement(StatementPointer body, Handler handler)
    : body_(std::move(body)), handler_(std::move(handler)) {}

Flow TryStatement::execute(Run& run) const {
  std::optional<ScriptError> error;
  try {
    return body_->execute(run);
  } catch (Failure& failure) {
    error = std::move(failure.error);
  }
  return handle(run, *error);
}

Flow TryStatement::handle(Run& run, const ScriptError& error) const {
  if (handler_.message != nullptr)
    handler_.message->assign(run, error.message);
  if (handler_.number != nullptr)
    handler_.number->assign(run, static_cast<int>(error.number));
  return handler_.body == nullptr ? Flow::next : handler_.body->execute(run);
}

}  // namespace AppleScript
