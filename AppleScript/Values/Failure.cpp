#include "AppleScript/Values/Failure.h"

#include "AppleScript/Values/SourceForm.h"

namespace AppleScript {

void fail(ErrorNumber number, std::string message, SourceRange range) {
  throw Failure{{.number = number, .message = std::move(message), .range = range}};
}

void failToCoerce(const Value& value, std::string_view typeName) {
  fail(ErrorNumber::cantCoerce, "Can’t make " + shortSourceForm(value) + " into type " + std::string(typeName) + ".");
}

void failToGet(std::string_view what) {
  fail(ErrorNumber::noSuchObject, "Can’t get " + std::string(what) + ".");
}

void failOfDepth() {
  fail(ErrorNumber::stackOverflow, "Stack overflow.");
}

Descent::Descent(std::size_t& depth) : depth_(depth) {
  if (depth_ == maximumNesting)
    failOfDepth();
  ++depth_;
}

}  // namespace AppleScript
