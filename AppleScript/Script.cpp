#include "AppleScript/Script.h"

#include <cstddef>
#include <utility>

#include "AppleScript/Running/Run.h"
#include "AppleScript/Statements/Statements.h"
#include "AppleScript/Syntax/Lexer.h"
#include "AppleScript/Syntax/ParseContext.h"
#include "AppleScript/Syntax/StatementParser.h"
#include "AppleScript/Values/Failure.h"

namespace AppleScript {

struct Script::Program {
  StatementPointer body;
  std::size_t variableCount;
  ApplicationDirectory& applications;
};

Script::Script(std::unique_ptr<const Program> program) : program_(std::move(program)) {}
Script::Script(Script&&) noexcept = default;
Script& Script::operator=(Script&&) noexcept = default;
Script::~Script() = default;

Result<Script> Script::compile(std::string_view source, ApplicationDirectory& applications) {
  try {
    ParseContext context(Lexer(source).tokens(), applications);
    StatementPointer body = StatementParser(context).parseScript();
    return Script(
        std::unique_ptr<const Program>(new Program{std::move(body), context.variables().size(), applications}));
  } catch (Failure& failure) {
    return std::unexpected(std::move(failure.error));
  }
}

Result<std::optional<Value>> Script::run() const {
  try {
    Run run(program_->applications, program_->variableCount);
    program_->body->execute(run);
    return run.takeValue();
  } catch (Failure& failure) {
    return std::unexpected(std::move(failure.error));
  }
}

}  // namespace AppleScript
