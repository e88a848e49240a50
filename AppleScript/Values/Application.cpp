#include "AppleScript/Values/Application.h"

#include <algorithm>

#include "AppleScript/Text/CaseFolding.h"
#include "AppleScript/Values/SourceForm.h"

namespace AppleScript {

namespace {

const Value& nothing() {
  static const Value missing;
  return missing;
}

Result<std::string> textOf(const Value& value, std::string_view what) {
  if (value.isMissing()) {
    return std::unexpected(ScriptError{.number = ErrorNumber::missingParameter,
                                       .message = "The " + std::string(what) + " parameter is missing."});
  }
  auto text = value.stringValue();
  if (!text) {
    return std::unexpected(ScriptError{.number = ErrorNumber::cantCoerce,
                                       .message = "Can’t make " + shortSourceForm(value) + " into type text."});
  }
  return *std::move(text);
}

}  // namespace

const Value& Arguments::direct() const {
  return direct_ ? *direct_ : nothing();
}

const Value& Arguments::labelled(std::string_view label) const {
  const auto found = std::ranges::find_if(labelled_, [label](const auto& one) { return sameName(one.first, label); });
  return found == labelled_.end() ? nothing() : found->second;
}

Result<std::string> Arguments::directText() const {
  return textOf(direct(), "direct");
}

Result<std::string> Arguments::labelledText(std::string_view label) const {
  return textOf(labelled(label), label);
}

}  // namespace AppleScript
