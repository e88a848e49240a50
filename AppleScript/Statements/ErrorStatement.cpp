#include "AppleScript/Statements/ErrorStatement.h"

#include <limits>
#include <string>
#include <utility>

#include "AppleScript/Values/Coercions.h"
#include "AppleScript/Values/Failure.h"

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
