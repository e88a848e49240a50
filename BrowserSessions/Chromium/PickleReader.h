#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace BrowserSessions {

/// Takes the fields of a Chromium pickle in their order: a sequence of values behind a small header, each filled up to
/// a multiple of four bytes. What is read points into the pickle's bytes.
class PickleReader {
 public:
  /// The reader of a pickle's first field; none where its header does not go with its length.
  static std::optional<PickleReader> open(std::string_view pickle);

  /// The next field; none where it is not whole, or has a length that it cannot have.
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
