#include "AppleScript/Statements/Block.h"

namespace AppleScript {

Flow Block::execute(Run& run) const {
  for (const StatementPointer& statement : statements_) {
    const Flow flow = statement->execute(run);
    if (flow != Flow::next)
      return flow;
  }
  return Flow::next;
}

}  // namespace AppleScript
