#include "AppleScript/Expressions/CommandExpression.h"

#include <algorithm>
#include <string>

#include "AppleScript/Values/Arguments.h"
#include "AppleScript/Values/Dereference.h"
#include "AppleScript/Values/Failure.h"

namespace AppleScript {

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
