#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>

namespace BrowserSessions {

/// A record of a session log: one change of what is open.
struct SessionCommand {
  std::uint8_t id = 0;
  std::string_view payload;
};

/// Reads the records of a Chromium session log (an SNSS file) in their order. They point into the bytes of the log,
/// which must outlive them.
class SessionLog {
 public:
  /// Starts at the first record. A log that ends within its header has no records yet. Fails with a sentence if the
  /// bytes are not a session log, or are an encrypted one or one of an unknown version.
  static std::expected<SessionLog, std::string> open(std::string_view bytes);

  /// The next record; `nullopt` at the end, and if the log ends within the record.
  std::optional<SessionCommand> next();

  /// Whether the remaining records contain the mark that the browser writes after everything that was open when it
  /// began the log.
  [[nodiscard]] bool isComplete() const;

 private:
  explicit SessionLog(std::string_view records) : rest_(records) {}

  std::string_view rest_;
};

/// Reads the fields of a Chromium pickle in their order. A pickle, as in the payload of some records, is a small header
/// and then a sequence of values, each padded to a multiple of four bytes. The texts point into the pickle's bytes.
class PickleReader {
 public:
  /// Starts at the first field; `nullopt` if the header contradicts the pickle's length.
  static std::optional<PickleReader> open(std::string_view pickle);

  /// The next field; `nullopt` if it is incomplete or has an impossible length.
  std::optional<std::int32_t> integer();
  /// The bytes of a text in UTF-8.
  std::optional<std::string_view> text();
  /// The bytes of a text in UTF-16, the lower byte of each unit first.
  std::optional<std::string_view> text16();

 private:
  explicit PickleReader(std::string_view fields) : rest_(fields) {}
  std::optional<std::string_view> take(std::uint64_t size);
  std::optional<std::string_view> takeUnits(std::uint64_t unitSize);

  std::string_view rest_;
};

}  // namespace BrowserSessions
