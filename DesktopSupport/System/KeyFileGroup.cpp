#include "DesktopSupport/System/KeyFileGroup.h"

#include <algorithm>

#include <glib.h>

#include "DesktopSupport/System/Text.h"

namespace DesktopSupport {

namespace {

constexpr std::string_view blanks = " \t\r\f\v";

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos)
    return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string_view takeLine(std::string_view& text) {
  const auto end = text.find('\n');
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return line;
}

bool isHeading(std::string_view line, std::string_view name) {
  return line.size() == name.size() + 2 && line.front() == '[' && line.back() == ']' &&
         line.substr(1, name.size()) == name;
}

char unescaped(char escape) {
  switch (escape) {
    case 's':
      return ' ';
    case 'n':
      return '\n';
    case 't':
      return '\t';
    case 'r':
      return '\r';
    default:
      return escape;
  }
}

bool isKnownEscape(char escape) {
  return std::string_view("sntr\\").contains(escape);
}

std::string withoutEscapes(std::string_view value) {
  std::string text;
  text.reserve(value.size());
  for (std::size_t index = 0; index < value.size(); ++index)
    if (value[index] == '\\' && index + 1 < value.size() && isKnownEscape(value[index + 1]))
      text += unescaped(value[++index]);
    else
      text += value[index];
  return text;
}

}  // namespace

std::optional<KeyFileGroup> KeyFileGroup::parse(std::string_view text, std::string_view name) {
  KeyFileGroup group;
  bool isInside = false;
  while (!text.empty()) {
    const std::string_view line = trimmed(takeLine(text));
    if (line.empty() || line.front() == '#')
      continue;
    const auto equals = line.find('=');
    if (line.front() == '[') {
      if (isInside)
        break;
      isInside = isHeading(line, name);
    } else if (equals == std::string_view::npos || equals == 0) {
      return std::nullopt;
    } else if (isInside) {
      group.values_.emplace_back(trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)));
    }
  }
  return isInside ? std::optional(std::move(group)) : std::nullopt;
}

// The last value counts if a key is given twice.
std::optional<std::string_view> KeyFileGroup::value(std::string_view key) const {
  const auto found =
      std::ranges::find(values_.rbegin(), values_.rend(), key, [](const auto& pair) { return pair.first; });
  return found == values_.rend() ? std::nullopt : std::optional(found->second);
}

std::optional<std::string> KeyFileGroup::text(std::string_view key) const {
  const auto found = value(key);
  if (!found || !isUTF8(*found))
    return std::nullopt;
  return withoutEscapes(*found);
}

std::optional<std::string> KeyFileGroup::localizedText(std::string_view key) const {
  for (const char* const* language = g_get_language_names(); *language != nullptr; ++language)
    if (auto translated = text(std::string(key) + '[' + *language + ']'))
      return translated;
  return text(key);
}

bool KeyFileGroup::hasKeyStarting(std::string_view start) const {
  // Most keys differ in the first character, which is compared without a call.
  return std::ranges::any_of(values_, [&](const auto& pair) {
    return !pair.first.empty() && pair.first.front() == start.front() && pair.first.starts_with(start);
  });
}

bool KeyFileGroup::isTrue(std::string_view key) const {
  return text(key) == "true";
}

}  // namespace DesktopSupport
