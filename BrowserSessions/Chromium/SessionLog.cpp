#include "BrowserSessions/Chromium/SessionLog.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "BrowserSessions/BrowserFiles.h"

namespace BrowserSessions {

namespace {

constexpr std::string_view signature = "SNSS";
constexpr std::size_t headerSize = 8;
constexpr std::size_t sizeSize = 2;
constexpr std::uint8_t initialStateMarker = 255;

// The fields of a pickle are padded to a multiple of this.
constexpr std::size_t pickleUnit = 4;

// The reason why a log of this version cannot be read.
std::optional<std::string> complaint(std::int32_t version) {
  switch (version) {
    case 3:
      return std::nullopt;
    case 2:
    case 4:
    case 5:
      return "The session log is encrypted.";
    default:
      return "The session log has the unknown version " + std::to_string(version) + ".";
  }
}

}  // namespace

std::expected<SessionLog, std::string> SessionLog::open(std::string_view bytes) {
  if (!bytes.starts_with(signature.substr(0, bytes.size())))
    return std::unexpected("The file is not a session log.");
  if (bytes.size() < headerSize)
    return SessionLog({});
  if (auto wrong = complaint(littleEndian<std::int32_t>(bytes.substr(signature.size()))))
    return std::unexpected(std::move(*wrong));
  return SessionLog(bytes.substr(headerSize));
}

std::optional<SessionCommand> SessionLog::next() {
  const std::size_t size = rest_.size() < sizeSize ? 0 : littleEndian<std::uint16_t>(rest_);
  if (size == 0 || size > rest_.size() - sizeSize)
    return std::nullopt;
  const std::string_view record = rest_.substr(sizeSize, size);
  rest_.remove_prefix(sizeSize + size);
  return SessionCommand{static_cast<std::uint8_t>(record.front()), record.substr(1)};
}

bool SessionLog::isComplete() const {
  SessionLog rest = *this;
  while (const auto command = rest.next())
    if (command->id == initialStateMarker)
      return true;
  return false;
}

std::optional<PickleReader> PickleReader::open(std::string_view pickle) {
  if (pickle.size() < pickleUnit)
    return std::nullopt;
  const std::size_t fieldsSize = littleEndian<std::uint32_t>(pickle);
  if (fieldsSize > pickle.size() - pickleUnit || (pickle.size() - fieldsSize) % pickleUnit != 0)
    return std::nullopt;
  return PickleReader(pickle.substr(pickle.size() - fieldsSize));
}

std::optional<std::string_view> PickleReader::take(std::uint64_t size) {
  if (size > rest_.size())
    return std::nullopt;
  const std::string_view taken = rest_.substr(0, size);
  rest_.remove_prefix(std::min<std::size_t>((size + pickleUnit - 1) / pickleUnit * pickleUnit, rest_.size()));
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
