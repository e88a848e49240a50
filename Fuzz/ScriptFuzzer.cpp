#include <algorithm>
#include <optional>
#include <string>

#include "AppleScript/Text/CaseFolding.h"
#include "AppleScript/Text/UTF8.h"
#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/SourceForm.h"
#include "Fuzz/ClockApplication.h"
#include "Fuzz/Target.h"
#include "Tests/AppleScript/TestApplications.h"

namespace {

using AppleScript::Result;
using AppleScript::Script;
using AppleScript::Value;

/// The applications of the interpreter's own tests, and the clock.
class Applications : public AppleScript::ApplicationDirectory {
 public:
  [[nodiscard]] AppleScript::Application* find(std::string_view name) override {
    return AppleScript::sameName(clock.name(), name) ? &clock : others_.find(name);
  }

  Fuzz::ClockApplication clock;

 private:
  AppleScript::Testing::TestApplications others_;
};

void requireSound(const AppleScript::ScriptError& error, std::string_view source) {
  Fuzz::requireUTF8(error.message);
  Fuzz::requireUTF8(error.applicationName);
  if (AppleScript::UTF8::firstMalformed(source))
    return;
  const std::size_t characters = AppleScript::UTF8::count(source);
  Fuzz::require(error.range.start <= characters && error.range.length <= characters - error.range.start,
                "An error's range lies in the source.");
}

/// Whether evaluating the source form of a value yields the same value.
bool isPlain(const Value& value) {
  if (const auto* list = value.getIf<AppleScript::List>())
    return std::ranges::all_of(list->items(), isPlain);
  return value.isMissing() || value.is<bool>() || value.is<std::int64_t>() || value.is<double>() ||
         value.is<AppleScript::Text>();
}

void requireSameFromSourceForm(const std::string& form) {
  Applications applications;
  const auto script = Script::compile("return " + form, applications);
  Fuzz::require(script.has_value(), "A source form can be read.");
  const std::optional<Value> value = script->run().value_or(std::nullopt);
  Fuzz::require(value && AppleScript::sourceForm(*value) == form, "A source form means its value.");
}

/// The outcome of a run in words, or `nullopt` if it was stopped.
std::optional<std::string> outcome(const Script& script, Fuzz::ClockApplication& clock, std::string_view source) {
  try {
    clock.restart();
    const auto result = script.run();
    if (!result) {
      requireSound(result.error(), source);
      return result.error().message;
    }
    const std::optional<Value>& value = *result;
    if (!value)
      return "nothing";
    Fuzz::requireUTF8(value->stringValue().value_or(""));
    std::string form = AppleScript::sourceForm(*value);
    Fuzz::requireUTF8(form);
    if (isPlain(*value))
      requireSameFromSourceForm(form);
    return form;
  } catch (const Fuzz::Stopped&) {
    return std::nullopt;
  }
}

bool isRandom(std::string_view source) {
  const auto folded = [](char letter) { return static_cast<char>(letter | 0x20); };
  constexpr std::string_view word = "some";
  return !std::ranges::search(source, word, {}, folded, folded).empty();
}

void runTwice(const std::string& source) {
  Applications applications;
  const auto script = Script::compile(source, applications);
  if (!script)
    return;
  const auto first = outcome(*script, applications.clock, source);
  const auto second = outcome(*script, applications.clock, source);
  Fuzz::require(!first || !second || first == second || isRandom(source), "Each run starts afresh.");
}

}  // namespace

// The input is a script. It is compiled unchanged, and run with the clock's command in it.
void Fuzz::run(std::string_view input) {
  Applications applications;
  if (const auto script = Script::compile(input, applications); !script)
    requireSound(script.error(), input);
  try {
    runTwice(ClockApplication::withTicks(input));
  } catch (const AppleScript::Failure& failure) {
    requireSound(failure.error, input);
  }
}
