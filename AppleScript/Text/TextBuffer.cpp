#include "AppleScript/Text/TextBuffer.h"

#include <algorithm>
#include <utility>

#include "AppleScript/Text/UTF8.h"

namespace AppleScript {

namespace {

constexpr std::size_t charactersPerMark = 64;

}  // namespace

TextBuffer::TextBuffer(std::string bytes) : bytes_(std::move(bytes)), limit_(bytes_.size()) {}

TextBuffer::TextBuffer(std::string_view bytes, std::size_t room) : limit_(bytes.size() + room) {
  bytes_.reserve(limit_);
  bytes_.append(bytes);
}

std::size_t TextBuffer::offsetOfCharacter(std::size_t number) const {
  const std::size_t stretch = number / charactersPerMark;
  while (marks_.size() < stretch)
    markNextStretch();
  return UTF8::skip(bytes_, mark(stretch), number % charactersPerMark);
}

std::size_t TextBuffer::charactersBefore(std::size_t offset) const {
  while (UTF8::skip(bytes_, lastMark(), charactersPerMark) < offset)
    markNextStretch();
  const auto behind = std::upper_bound(marks_.begin(), marks_.end(), offset);
  const auto stretch = static_cast<std::size_t>(behind - marks_.begin());
  return stretch * charactersPerMark + UTF8::count(bytes().substr(mark(stretch), offset - mark(stretch)));
}

void TextBuffer::markNextStretch() const {
  marks_.push_back(UTF8::skip(bytes_, lastMark(), charactersPerMark));
}

}  // namespace AppleScript
