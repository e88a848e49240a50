#include "DesktopSupport/Processes/ApplicationUnit.h"

#include <algorithm>

#include "DesktopSupport/System/Text.h"

namespace DesktopSupport {

namespace {

bool removePrefix(std::string_view& text, std::string_view prefix) {
  if (!text.starts_with(prefix))
    return false;
  text.remove_prefix(prefix.size());
  return true;
}

bool removeSuffix(std::string_view& text, std::string_view suffix) {
  if (!text.ends_with(suffix))
    return false;
  text.remove_suffix(suffix.size());
  return true;
}

// Removes the last `separator` and the text after it, and returns that text. Empty if there is no separator.
std::string_view takeLast(std::string_view& text, char separator) {
  const auto position = text.rfind(separator);
  if (position == std::string_view::npos)
    return {};
  const std::string_view last = text.substr(position + 1);
  text = text.substr(0, position);
  return last;
}

// systemd writes a character that has a meaning in unit names as "\x2d".
std::string unescaped(std::string_view text) {
  constexpr std::size_t escapeLength = 4;
  std::string plain;
  while (!text.empty()) {
    const bool mayBeEscape = text.size() >= escapeLength && text.starts_with("\\x");
    const auto character = mayBeEscape ? parseNumber<unsigned char>(text.substr(2, 2), 16) : std::nullopt;
    plain += character ? static_cast<char>(*character) : text.front();
    text.remove_prefix(character ? escapeLength : 1);
  }
  return plain;
}

std::optional<ApplicationUnit> parse(std::string_view unit) {
  if (!removePrefix(unit, "app-"))
    return std::nullopt;
  const bool isScope = removeSuffix(unit, ".scope");
  if (!isScope && !removeSuffix(unit, ".service"))
    return std::nullopt;
  ApplicationUnit found;
  found.random = takeLast(unit, isScope ? '-' : '@');
  const std::string_view id = takeLast(unit, '-');
  found.applicationID = unescaped(id.empty() ? unit : id);
  found.launcher = unescaped(id.empty() ? "" : unit);
  return found.applicationID.empty() ? std::nullopt : std::optional(found);
}

// From the text after "snap.": the instance and the application. Hooks ("foo.hook.configure") are no applications.
std::optional<SnapApplication> fromTag(std::string_view tag) {
  const auto dot = tag.find('.');
  if (dot == std::string_view::npos)
    return std::nullopt;
  SnapApplication found{.instance = std::string(tag.substr(0, dot)), .application = std::string(tag.substr(dot + 1))};
  const bool isComplete = !found.instance.empty() && !found.application.empty() && !found.application.contains('.');
  return isComplete ? std::optional(std::move(found)) : std::nullopt;
}

std::optional<SnapApplication> parseSnap(std::string_view unit) {
  constexpr std::size_t uuidLength = 36;
  if (!removePrefix(unit, "snap."))
    return std::nullopt;
  if (removeSuffix(unit, ".service"))
    return fromTag(unit);
  if (!removeSuffix(unit, ".scope"))
    return std::nullopt;
  if (unit.size() > uuidLength && unit[unit.size() - uuidLength - 1] == '-')
    unit.remove_suffix(uuidLength + 1);
  else
    takeLast(unit, '.');
  return fromTag(unit);
}

// The result of `parse` for the innermost unit that it accepts.
template <typename Parse>
auto innermost(std::string_view controlGroups, Parse parse) -> decltype(parse(controlGroups)) {
  while (!controlGroups.empty()) {
    std::string_view line = controlGroups.substr(0, controlGroups.find('\n'));
    controlGroups.remove_prefix(std::min(line.size() + 1, controlGroups.size()));
    while (line.contains('/'))
      if (auto found = parse(takeLast(line, '/')))
        return found;
  }
  return std::nullopt;
}

}  // namespace

std::optional<ApplicationUnit> ApplicationUnit::find(std::string_view controlGroups) {
  return innermost(controlGroups, parse);
}

std::optional<SnapApplication> SnapApplication::find(std::string_view controlGroups) {
  return innermost(controlGroups, parseSnap);
}

std::optional<SnapApplication> SnapApplication::fromLabel(std::string_view label) {
  if (!removePrefix(label, "snap."))
    return std::nullopt;
  // The mode is in parentheses, and a profile inside the snap's comes after slashes.
  return fromTag(label.substr(0, label.find_first_of(" /\n")));
}

std::string SnapApplication::entryID() const {
  std::string prefix = instance;
  std::ranges::replace(prefix, '_', '+');
  return prefix + '_' + application;
}

}  // namespace DesktopSupport
