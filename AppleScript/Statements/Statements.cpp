#include "AppleScript/Statements/Statements.h"

#include <limits>
#include <string>
#include <utility>

#include "AppleScript/Values/Coercions.h"
#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/SharedContents.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

namespace {

int errorNumber(const Value& value) {
  const std::int64_t number = toInteger(value);
  if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
    failToCoerce(value, "integer");
  return static_cast<int>(number);
}

std::string standardMessage(int number) {
  return number == static_cast<int>(ErrorNumber::userCanceled)
             ? "User canceled."
             : "An error of type " + std::to_string(number) + " has occurred.";
}

}  // namespace

Flow Block::execute(Run& run) const {
  for (const StatementPointer& statement : statements_) {
    const Flow flow = statement->execute(run);
    if (flow != Flow::next)
      return flow;
  }
  return Flow::next;
}

Flow ExpressionStatement::execute(Run& run) const {
  Value value = expression_->evaluate(run);
  if (value.isMissing() && expression_->isCommand())
    run.noteStatementWithoutValue();
  else
    run.noteStatement(std::move(value));
  return Flow::next;
}

SetStatement::SetStatement(ExpressionPointer target, ExpressionPointer value, Sharing sharing)
    : target_(std::move(target)), value_(std::move(value)), sharing_(sharing) {}

Flow SetStatement::execute(Run& run) const {
  Value value = value_->evaluate(run);
  if (sharing_ == Sharing::copied)
    value = deepCopy(value);
  target_->assign(run, value);
  run.noteStatement(std::move(value));
  return Flow::next;
}

Flow ReturnStatement::execute(Run& run) const {
  if (value_ == nullptr)
    run.noteStatementWithoutValue();
  else
    run.noteStatement(value_->evaluate(run));
  return Flow::endScript;
}

TellStatement::TellStatement(ExpressionPointer target, StatementPointer body)
    : target_(std::move(target)), body_(std::move(body)) {}

Flow TellStatement::execute(Run& run) const {
  const Value target = target_->evaluate(run);
  const TargetScope scope(run, dereferenced(target));
  return body_->execute(run);
}

IfStatement::IfStatement(std::vector<Branch> branches, StatementPointer otherwise)
    : branches_(std::move(branches)), otherwise_(std::move(otherwise)) {}

Flow IfStatement::execute(Run& run) const {
  for (const Branch& branch : branches_)
    if (branch.condition->evaluateAs(run, toBoolean))
      return branch.body->execute(run);
  return otherwise_ == nullptr ? Flow::next : otherwise_->execute(run);
}

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

ErrorStatement::ErrorStatement(ExpressionPointer message, ExpressionPointer number, SourceRange range)
    : message_(std::move(message)), number_(std::move(number)), range_(range) {}

Flow ErrorStatement::execute(Run& run) const {
  const int number =
      number_ == nullptr ? static_cast<int>(ErrorNumber::genericError) : number_->evaluateAs(run, errorNumber);
  const auto text = [](const Value& value) { return std::string(toText(value).view()); };
  fail(static_cast<ErrorNumber>(number),
       message_ == nullptr ? standardMessage(number) : message_->evaluateAs(run, text), range_);
}

}  // namespace AppleScript
