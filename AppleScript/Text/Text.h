#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace AppleScript {

/// An immutable text in UTF-8. Copies share their bytes. A text that was made by appending can be appended to without
/// copying, so a text that grows step by step costs amortised constant time per byte. Texts that share bytes belong to
/// one thread at a time.
class Text {
 public:
  /// The empty text.
  Text() = default;
  explicit Text(std::string text);
  explicit Text(std::string_view text);
  explicit Text(const char* text);

  /// The bytes; valid as long as this text or a copy of it lives.
  [[nodiscard]] std::string_view view() const;
  /// The length in bytes.
  [[nodiscard]] std::size_t size() const { return size_; }
  [[nodiscard]] bool empty() const { return size_ == 0; }

  /// This text followed by `more`. This text itself does not change.
  [[nodiscard]] Text appending(std::string_view more) const;

  /// The number of Unicode characters.
  [[nodiscard]] std::size_t characterCount() const;
  /// `count` characters from the character `first`, counted from 0. All must be within the text.
  [[nodiscard]] std::string_view characters(std::size_t first, std::size_t count) const;

 private:
  class Buffer;
  std::shared_ptr<Buffer> buffer_;
  std::size_t size_ = 0;
};

}  // namespace AppleScript
