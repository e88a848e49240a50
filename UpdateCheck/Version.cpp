#include "UpdateCheck/Version.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace UpdateCheck {

namespace {

enum class Kind { digit, letter, separator };

Kind kindOf(char character) {
  if (character >= '0' && character <= '9')
    return Kind::digit;
  const bool isLetter = (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
  const bool isBeyondASCII = static_cast<unsigned char>(character) >= 0x80;
  return isLetter || isBeyondASCII ? Kind::letter : Kind::separator;
}

/// Cuts off the characters at the beginning that are of one kind.
std::string_view takeRun(std::string_view& text) {
  const Kind kind = kindOf(text.front());
  const auto end = std::ranges::find_if(text, [kind](char character) { return kindOf(character) != kind; });
  const auto length = static_cast<std::size_t>(end - text.begin());
  const std::string_view run = text.substr(0, length);
  text.remove_prefix(length);
  return run;
}

std::string withoutLeadingZeros(std::string_view digits) {
  const auto first = digits.find_first_not_of('0');
  return first == std::string_view::npos ? std::string() : std::string(digits.substr(first));
}

std::string lowerCase(std::string_view word) {
  std::string text(word);
  for (char& character : text)
    if (character >= 'A' && character <= 'Z')
      character = static_cast<char>(character - 'A' + 'a');
  return text;
}

}  // namespace

Version::Version(std::string_view text) {
  text = text.substr(0, text.find('+'));
  while (!text.empty()) {
    const std::string_view run = takeRun(text);
    const Kind kind = kindOf(run.front());
    if (kind == Kind::digit)
      append({.isNumber = true, .text = withoutLeadingZeros(run)});
    else if (kind == Kind::letter)
      append({.isNumber = false, .text = lowerCase(run)});
  }
}

// Zeros before a word are dropped, so that 2.0.0b1 and 2b1 are equivalent.
void Version::append(Part part) {
  if (!part.isNumber)
    while (!parts_.empty() && parts_.back().isNumber && parts_.back().text.empty())
      parts_.pop_back();
  parts_.push_back(std::move(part));
}

std::weak_ordering Version::compare(const Part& left, const Part& right) {
  if (left.isNumber != right.isNumber)
    return left.isNumber <=> right.isNumber;
  if (left.isNumber && left.text.size() != right.text.size())
    return left.text.size() <=> right.text.size();
  return left.text <=> right.text;
}

std::weak_ordering operator<=>(const Version& left, const Version& right) {
  static const Version::Part zero;
  const std::size_t count = std::max(left.parts_.size(), right.parts_.size());
  for (std::size_t index = 0; index < count; ++index) {
    const auto& leftPart = index < left.parts_.size() ? left.parts_[index] : zero;
    const auto& rightPart = index < right.parts_.size() ? right.parts_[index] : zero;
    if (const auto order = Version::compare(leftPart, rightPart); order != 0)
      return order;
  }
  return std::weak_ordering::equivalent;
}

}  // namespace UpdateCheck
