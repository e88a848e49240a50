#include "BrowserSessions/Chromium/PickleReader.h"

#include <algorithm>

#include "BrowserSessions/LittleEndian.h"

namespace BrowserSessions {

namespace {

constexpr std::size_t unit = 4;

}  // namespace

std::optional<PickleReader> PickleReader::open(std::string_view pickle) {
  if (pickle.size() < unit)
    return std::nullopt;
  const std::size_t fieldsSize = littleEndian<std::uint32_t>(pickle);
  if (fieldsSize > pickle.size() - unit || (pickle.size() - fieldsSize) % unit != 0)
    return std::nullopt;
  return PickleReader(pickle.substr(pickle.size() - fieldsSize));
}

std::optional<std::string_view> PickleReader::take(std::uint64_t size) {
  if (size > rest_.size())
    return std::nullopt;
  const std::string_view taken = rest_.substr(0, size);
  rest_.remove_prefix(std::min<std::size_t>((size + unit - 1) / unit * unit, rest_.size()));
  return taken;
}

std::optional<std::string_view> PickleReader::takeUnits(std::uint64_t unitSize) {
  const auto count = integer();
  return count && *count >= 0 ? take(static_cast<std::uint64_t>(*count) * unitSize) : std::nullopt;
}

std::optional<std::int32_t> PickleReader::integer() {
  const auto bytes = take(sizeof(std::int32_t));
  return bytes ? std::optional(littleEndian<std::int32_t>(*bytes)) : std::nullopt;
}

std::optional<std::string_view> PickleReader::text() {
  return takeUnits(1);
}

std::optional<std::string_view> PickleReader::text16() {
  return takeUnits(2);
}

}  // namespace BrowserSessions
