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

/// The records of a Chromium session log (an SNSS file), taken one after the other. They point into the bytes of the
/// log, which must outlive them.
class SessionLog {
 public:
  /// Starts at the first record. A log that ends within its header has none yet. Fails where the bytes are no session
  /// log, an encrypted one, or one of a version that is not known.
  static std::expected<SessionLog, std::string> open(std::string_view bytes);

  /// The next record; none at the end, and where the log ends within the record.
  std::optional<SessionCommand> next();

  /// Whether the rest has the mark that the browser sets once all that was open at the start of the log is in it.
  [[nodiscard]] bool isComplete() const;

 private:
  explicit SessionLog(std::string_view records) : rest_(records) {}

  std::string_view rest_;
};

}  // namespace BrowserSessions
