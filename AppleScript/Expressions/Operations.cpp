#include "AppleScript/Expressions/Operations.h"

#include <algorithm>
#include <string>
#include <utility>

#include "AppleScript/Values/Application.h"
#include "AppleScript/Values/Coercions.h"
#include "AppleScript/Values/Failure.h"

namespace AppleScript {

namespace {

/// Whether `left` alone decides `left op …`, so that the rest is not evaluated.
bool decides(Operator op, const Value& left) {
  return (op == Operator::logicalAnd && !toBoolean(left)) || (op == Operator::logicalOr && toBoolean(left));
}

}  // namespace

OperatorChain::OperatorChain(ExpressionPointer first, std::vector<Link> links, Associativity associativity,
                             SourceRange range)
    : Expression(range), first_(std::move(first)), links_(std::move(links)), associativity_(associativity) {}

Value OperatorChain::compute(Run& run) const {
  return associativity_ == Associativity::right ? computeFromTheRight(run) : computeFromTheLeft(run);
}

Value OperatorChain::computeFromTheLeft(Run& run) const {
  Value value = first_->evaluate(run);
  for (const Link& link : links_) {
    if (decides(link.op, value))
      return toBoolean(value);
    value = applied(link.op, value, link.operand->evaluate(run), run.delimiter());
  }
  return value;
}

Value OperatorChain::computeFromTheRight(Run& run) const {
  std::vector<Value> operands{first_->evaluate(run)};
  for (const Link& link : links_)
    operands.push_back(link.operand->evaluate(run));
  Value value = std::move(operands.back());
  for (std::size_t i = links_.size(); i > 0; --i)
    value = applied(links_[i - 1].op, operands[i - 1], value, run.delimiter());
  return value;
}

Value ExistsExpression::compute(Run& run) const {
  try {
    return !reference_->evaluate(run).isMissing();
  } catch (const Failure& failure) {
    const ErrorNumber number = failure.error.number;
    if (number != ErrorNumber::noSuchObject && number != ErrorNumber::badIndex)
      throw;
    return false;
  }
}

CommandExpression::CommandExpression(const CommandDescription& command, Application& application,
                                     ExpressionPointer direct, std::vector<Labelled> labelled, SourceRange range)
    : Expression(range),
      command_(command),
      application_(application),
      direct_(std::move(direct)),
      labelled_(std::move(labelled)) {}

Value CommandExpression::compute(Run& run) const {
  requireAllParameters();
  Result<Value> reply = command_.run(application_, arguments(run));
  if (!reply) {
    ScriptError error = std::move(reply.error());
    error.applicationName = application_.name();
    throw Failure{std::move(error)};
  }
  const auto* reference = reply->getIf<ObjectReference>();
  return reference != nullptr ? Value(ObjectReference{reference->object, &application_}) : *std::move(reply);
}

Arguments CommandExpression::arguments(Run& run) const {
  Arguments arguments = direct_ == nullptr ? Arguments() : Arguments(dereferenced(direct_->evaluate(run)));
  for (const auto& [label, value] : labelled_)
    arguments.setLabelled(label, dereferenced(value->evaluate(run)));
  return arguments;
}

void CommandExpression::requireAllParameters() const {
  for (const ParameterDescription& parameter : command_.parameters) {
    if (std::ranges::find(labelled_, parameter.label, &Labelled::first) == labelled_.end()) {
      fail(ErrorNumber::missingParameter,
           "The " + std::string(parameter.label) + " parameter is missing for " + std::string(command_.name) + ".");
    }
  }
}

}  // namespace AppleScript
