#include "AppleScript/Values/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace AppleScript {

namespace {

// Reals from here on, and those this small, are written with an exponent.
constexpr double largePlain = 10000.0;
constexpr double smallPlain = 0.0001;

bool isPlain(double number) {
  const double size = std::abs(number);
  return number == 0 || (size < largePlain && size > smallPlain);
}

std::string shortest(double number, std::chars_format format) {
  std::array<char, 64> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, format).ptr;
  return {buffer.data(), end};
}

std::string withPoint(const std::string& digits) {
  return digits.find('.') == std::string::npos ? digits + ".0" : digits;
}

std::string withExponent(double number) {
  const std::string text = shortest(number, std::chars_format::scientific);
  const std::size_t e = text.find('e');
  const std::size_t digits = text.find_first_not_of('0', e + 2);
  return withPoint(text.substr(0, e)) + "E" + text[e + 1] + text.substr(digits);
}

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const std::size_t start = text.find_first_not_of(blanks);
  return start == std::string_view::npos ? std::string_view()
                                         : text.substr(start, text.find_last_not_of(blanks) - start + 1);
}

template <typename Number>
std::optional<Number> parsed(std::string_view text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool complete = error == std::errc() && end == text.data() + text.size();
  return complete ? std::optional(number) : std::nullopt;
}

}  // namespace

std::string numberText(std::int64_t number) {
  return std::to_string(number);
}

std::string numberText(double number) {
  if (!std::isfinite(number))
    return std::isnan(number) ? "NaN" : number > 0 ? "INF" : "-INF";
  return isPlain(number) ? withPoint(shortest(number, std::chars_format::fixed)) : withExponent(number);
}

std::optional<Value> numberFromText(std::string_view text) {
  std::string_view digits = trimmed(text);
  const bool isSigned = digits.starts_with('+') || digits.starts_with('-');
  const std::size_t first = isSigned ? 1 : 0;
  // What reads the number also takes "inf", "nan" and further signs.
  if (first == digits.size() || (digits[first] != '.' && (digits[first] < '0' || digits[first] > '9')))
    return std::nullopt;
  digits.remove_prefix(digits.starts_with('+') ? 1 : 0);
  if (const auto integer = parsed<std::int64_t>(digits))
    return *integer;
  const auto real = parsed<double>(digits);
  return real ? std::optional<Value>(*real) : std::nullopt;
}

}  // namespace AppleScript
