#include "AppleScript/Running/Run.h"

#include <algorithm>

#include "AppleScript/Values/Coercions.h"
#include "AppleScript/Values/SharedContents.h"

namespace AppleScript {

Run::Run(ApplicationDirectory& applications, std::size_t variableCount)
    : applications_(applications), variables_(variableCount) {}

void Run::noteStatement(Value value) {
  result_ = std::move(value);
  lastHadValue_ = true;
}

std::optional<Value> Run::takeValue() {
  if (!lastHadValue_ || !result_)
    return std::nullopt;
  return cycles_.isNeeded() ? deepCopy(*result_) : *std::move(result_);
}

const ObjectPointer& Run::root(Application& application) {
  auto found = std::ranges::find(roots_, &application, [](const auto& one) { return one.first; });
  if (found == roots_.end()) {
    roots_.emplace_back(&application, application.open());
    found = roots_.end() - 1;
  }
  if (!found->second) {
    ScriptError error = found->second.error();
    error.applicationName = application.name();
    throw Failure{std::move(error)};
  }
  return *found->second;
}

void Run::setTextItemDelimiters(Value delimiters) {
  const List list = toList(delimiters);
  delimiter_ = list.size() == 0 ? Text() : toText(list.at(0));
  delimiters_ = std::move(delimiters);
  textParts_.setDelimiters(list);
}

std::size_t Run::randomIndex(std::size_t count) {
  if (!random_)
    random_.emplace(std::random_device()());
  return std::uniform_int_distribution<std::size_t>(0, count - 1)(*random_);
}

}  // namespace AppleScript
