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

std::optional<std::string> parseSnap(std::string_view unit) {
  constexpr std::size_t uuidLength = 36;
  if (!removePrefix(unit, "snap.") || !removeSuffix(unit, ".scope"))
    return std::nullopt;
  const auto dot = unit.find('.');
  if (dot == std::string_view::npos)
    return std::nullopt;
  std::string_view application = unit.substr(dot + 1, unit.find('.', dot + 1) - dot - 1);
  if (application.size() > uuidLength && application[application.size() - uuidLength - 1] == '-')
    application.remove_suffix(uuidLength + 1);
  return std::string(unit.substr(0, dot)) + '_' + std::string(application);
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

std::optional<std::string> snapID(std::string_view controlGroups) {
  return innermost(controlGroups, parseSnap);
}

}  // namespace DesktopSupport
