#include "AppleScript/Statements/RepeatStatement.h"

namespace AppleScript {

Flow RepeatStatement::execute(Run& run) const {
  while (true)
    if (const auto end = round(run))
      return *end;
}

std::optional<Flow> RepeatStatement::round(Run& run) const {
  switch (body_->execute(run)) {
    case Flow::exitRepeat:
      return Flow::next;
    case Flow::endScript:
      return Flow::endScript;
    case Flow::next:
      break;
  }
  return std::nullopt;
}

}  // namespace AppleScript
