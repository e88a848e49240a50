#include "AppleScript/Text/Text.h"

#include <utility>

#include "AppleScript/Text/TextBuffer.h"

namespace AppleScript {

namespace {

constexpr std::size_t smallestRoom = 48;

}  // namespace

Text::Text(std::string text)
    : buffer_(text.empty() ? nullptr : std::make_shared<TextBuffer>(std::move(text))),
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
    longer.buffer_ = std::make_shared<TextBuffer>(view(), more.size() + longer.size_ + smallestRoom);
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
