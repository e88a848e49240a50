#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace BrowserSessions {

/// The bytes of a Chromium pickle, field by field.
class PickleWriter {
 public:
  PickleWriter& integer(std::int32_t value) { return add(littleEndianBytes(value)); }

  PickleWriter& text(std::string_view bytes) {
    return integer(static_cast<std::int32_t>(bytes.size())).add(std::string(bytes));
  }

  PickleWriter& text16(std::u16string_view units) {
    integer(static_cast<std::int32_t>(units.size()));
    std::string bytes;
    for (const char16_t unit : units)
      bytes += littleEndianBytes(static_cast<std::uint16_t>(unit));
    return add(bytes);
  }

  [[nodiscard]] std::string bytes() const {
    return littleEndianBytes(static_cast<std::uint32_t>(fields_.size())) + fields_;
  }

  template <std::integral T>
  static std::string littleEndianBytes(T value) {
    std::string bytes;
    for (std::size_t position = 0; position < sizeof(T); ++position)
      bytes += static_cast<char>(static_cast<std::uint64_t>(value) >> (8 * position) & 0xFF);
    return bytes;
  }

 private:
  PickleWriter& add(const std::string& bytes) {
    fields_ += bytes;
    fields_.resize((fields_.size() + 3) / 4 * 4);
    return *this;
  }

  std::string fields_;
};

/// The bytes of a Chromium session log, record by record. The test chooses the numbers of windows, tabs and pages.
class SessionLogWriter {
 public:
  explicit SessionLogWriter(std::int32_t version = 3) : bytes_("SNSS" + number(version)) {}

  SessionLogWriter& record(std::uint8_t id, std::string_view payload) {
    bytes_ += number(static_cast<std::uint16_t>(payload.size() + 1));
    bytes_ += static_cast<char>(id);
    bytes_ += payload;
    return *this;
  }

  SessionLogWriter& window(std::int32_t window, std::int32_t type = 0) {
    return record(9, number(window) + number(type));
  }
  SessionLogWriter& shown(std::int32_t window, std::int32_t index) { return record(8, number(window) + number(index)); }
  SessionLogWriter& windowClosed(std::int32_t window) { return record(17, number(window) + padding() + time(0)); }
  SessionLogWriter& inFront(std::int32_t window) { return record(20, number(window)); }

  SessionLogWriter& inWindow(std::int32_t tab, std::int32_t window) { return record(0, number(window) + number(tab)); }
  SessionLogWriter& atIndex(std::int32_t tab, std::int32_t index) { return record(2, number(tab) + number(index)); }
  SessionLogWriter& pinned(std::int32_t tab) { return record(12, number(tab) + number(1)); }
  SessionLogWriter& tabClosed(std::int32_t tab) { return record(16, number(tab) + padding() + time(0)); }
  SessionLogWriter& lastActive(std::int32_t tab, std::int64_t when) {
    return record(21, number(tab) + padding() + time(when));
  }

  SessionLogWriter& page(std::int32_t tab, std::int32_t place, std::string_view url, std::u16string_view title = u"") {
    const auto pickle = PickleWriter().integer(tab).integer(place).text(url).text16(title).text("state").integer(1);
    return record(6, pickle.bytes());
  }
  SessionLogWriter& goTo(std::int32_t tab, std::int32_t place) { return record(7, number(tab) + number(place)); }
  SessionLogWriter& removed(std::int32_t tab, std::int32_t first, std::int32_t count) {
    return record(24, number(tab) + number(first) + number(count));
  }

  /// A tab at an index of a window, with one page.
  SessionLogWriter& tab(std::int32_t window, std::int32_t tab, std::int32_t index, std::string_view url,
                        std::u16string_view title = u"") {
    return inWindow(tab, window).atIndex(tab, index).page(tab, 0, url, title).goTo(tab, 0);
  }

  /// The mark after everything that was open when the log was begun.
  SessionLogWriter& marker() { return record(255, ""); }

  [[nodiscard]] const std::string& bytes() const { return bytes_; }

  template <std::integral T>
  static std::string number(T value) {
    return PickleWriter::littleEndianBytes(value);
  }

 private:
  static std::string padding() { return number(std::int32_t{0}); }
  static std::string time(std::int64_t value) { return number(value); }

  std::string bytes_;
};

}  // namespace BrowserSessions
