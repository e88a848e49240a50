#include "BrowserSessions/Chromium/SessionLog.h"

#include "BrowserSessions/LittleEndian.h"

namespace BrowserSessions {

namespace {

constexpr std::string_view signature = "SNSS";
constexpr std::size_t headerSize = 8;
constexpr std::size_t sizeSize = 2;
constexpr std::uint8_t initialStateMarker = 255;

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
    return std::unexpected("The file is no session log.");
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

}  // namespace BrowserSessions
