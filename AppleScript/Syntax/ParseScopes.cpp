#include "AppleScript/Syntax/ParseScopes.h"

#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/Limits.h"

namespace AppleScript {

NestingScope::NestingScope(ParseContext& context) : context_(context) {
  if (context_.nesting_ == maximumNesting)
    fail(ErrorNumber::syntaxError, "Expressions and blocks nest too deeply here.", context_.tokens_.peek().range);
  ++context_.nesting_;
}

TellScope::TellScope(ParseContext& context, Application* application)
    : context_(context), outer_(context.active_.size()) {
  ++context_.targets_;
  if (application != nullptr)
    context_.active_.push_back(context_.terminologyOf(application));
}

TellScope::~TellScope() {
  --context_.targets_;
  context_.active_.resize(outer_);
}

}  // namespace AppleScript
