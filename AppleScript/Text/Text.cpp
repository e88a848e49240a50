#include "AppleScript/Text/Text.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "AppleScript/Text/UTF8.h"

namespace AppleScript {

namespace {

constexpr std::size_t charactersPerMark = 64;
constexpr std::size_t smallestRoom = 48;

}  // namespace

/// The bytes of one or more texts. Bytes are only added at the end and never move, so a text remembers nothing but its
/// length. The offset of every 64th character is kept: counting characters in a text that grows, or going through them
/// by number, need not begin at the start each time.
class Text::Buffer {
 public:
  /// Bytes that nothing can be added to.
  explicit Buffer(std::string bytes) : bytes_(std::move(bytes)), limit_(bytes_.size()) {}
  /// Bytes with room for `room` more.
  Buffer(std::string_view bytes, std::size_t room) : limit_(bytes.size() + room) {
    bytes_.reserve(limit_);
    bytes_.append(bytes);
  }

  [[nodiscard]] std::string_view bytes() const { return bytes_; }
  /// The number of bytes that can be added.
  [[nodiscard]] std::size_t room() const { return limit_ - bytes_.size(); }
  /// Adds `more`, which must fit into the room.
  void append(std::string_view more) { bytes_.append(more); }

  /// The offset of the character `number`, counted from 0; the size if there are only that many.
  [[nodiscard]] std::size_t offsetOfCharacter(std::size_t number) const;
  /// The number of characters that start before `offset`.
  [[nodiscard]] std::size_t charactersBefore(std::size_t offset) const;

 private:
  /// The offset of the character 64 * `number`.
  [[nodiscard]] std::size_t mark(std::size_t number) const { return number == 0 ? 0 : marks_[number - 1]; }
  [[nodiscard]] std::size_t afterLastMark() const { return UTF8::skip(bytes_, mark(marks_.size()), charactersPerMark); }

  std::string bytes_;
  std::size_t limit_;
  /// The offsets of the characters 64, 128, …, as far as anyone has asked.
  mutable std::vector<std::size_t> marks_;
};

std::size_t Text::Buffer::offsetOfCharacter(std::size_t number) const {
  const std::size_t marks = number / charactersPerMark;
  while (marks_.size() < marks)
    marks_.push_back(afterLastMark());
  return UTF8::skip(bytes_, mark(marks), number % charactersPerMark);
}

std::size_t Text::Buffer::charactersBefore(std::size_t offset) const {
  for (std::size_t next = afterLastMark(); next < offset; next = afterLastMark())
    marks_.push_back(next);
  const auto after = std::upper_bound(marks_.begin(), marks_.end(), offset);
  const auto marks = static_cast<std::size_t>(after - marks_.begin());
  return marks * charactersPerMark + UTF8::count(bytes().substr(mark(marks), offset - mark(marks)));
}

Text::Text(std::string text)
    : buffer_(text.empty() ? nullptr : std::make_shared<Buffer>(std::move(text))),
      size_(buffer_ == nullptr ? 0 : buffer_->bytes().size()) {}

Text::Text(std::string_view text) : Text(std::string(text)) {}

Text::Text(const char* text) : Text(std::string(text)) {}

std::string_view Text::view() const {
  return buffer_ == nullptr ? std::string_view() : buffer_->bytes().substr(0, size_);
}

Text Text::appending(std::string_view more) const {
  if (more.empty())
    return *this;
  Text longer = *this;
  longer.size_ += more.size();
  const bool endsTheBuffer = buffer_ != nullptr && buffer_->bytes().size() == size_;
  if (!endsTheBuffer || buffer_->room() < more.size())
    longer.buffer_ = std::make_shared<Buffer>(view(), more.size() + longer.size_ + smallestRoom);
  longer.buffer_->append(more);
  return longer;
}

std::size_t Text::characterCount() const {
  return buffer_ == nullptr ? 0 : buffer_->charactersBefore(size_);
}

std::string_view Text::characters(std::size_t first, std::size_t count) const {
  if (buffer_ == nullptr)
    return {};
  const std::size_t start = buffer_->offsetOfCharacter(first);
  return buffer_->bytes().substr(start, buffer_->offsetOfCharacter(first + count) - start);
}

}  // namespace AppleScript
