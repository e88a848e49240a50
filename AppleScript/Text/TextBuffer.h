#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace AppleScript {

/// The bytes behind one or more texts. Bytes are only ever added at the end and never move, so a text needs to remember
/// no more than its length. Knows where every so-manieth character starts, so that counting characters in a text that
/// grows, or walking through it by number, does not begin at its start each time.
class TextBuffer {
 public:
  /// Bytes that nothing can be added to.
  explicit TextBuffer(std::string bytes);
  /// Bytes with room for `room` more.
  TextBuffer(std::string_view bytes, std::size_t room);

  [[nodiscard]] std::string_view bytes() const { return bytes_; }
  /// How many bytes can be added.
  [[nodiscard]] std::size_t room() const { return limit_ - bytes_.size(); }
  /// Adds `more`, which must fit into the room.
  void append(std::string_view more) { bytes_.append(more); }

  /// The byte at which the character `number` (counted from 0) starts; the end where there are just so many.
  [[nodiscard]] std::size_t offsetOfCharacter(std::size_t number) const;
  /// How many characters start before the byte `offset`.
  [[nodiscard]] std::size_t charactersBefore(std::size_t offset) const;

 private:
  /// The byte at which stretch `number` of characters starts; stretch 0 is the first.
  [[nodiscard]] std::size_t mark(std::size_t number) const { return number == 0 ? 0 : marks_[number - 1]; }
  [[nodiscard]] std::size_t lastMark() const { return mark(marks_.size()); }
  void markNextStretch() const;

  std::string bytes_;
  std::size_t limit_;
  /// Where each stretch but the first starts, as far as anyone has asked.
  mutable std::vector<std::size_t> marks_;
};

}  // namespace AppleScript
