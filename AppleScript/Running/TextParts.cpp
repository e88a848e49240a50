#include "AppleScript/Running/TextParts.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "AppleScript/Text/CaseFolding.h"
#include "AppleScript/Text/UTF8.h"
#include "AppleScript/Values/BuiltIns.h"
#include "AppleScript/Values/Coercions.h"
#include "AppleScript/Values/SharedContents.h"

namespace AppleScript {

namespace {

std::vector<Value> paragraphs(std::string_view text) {
  std::vector<Value> result;
  std::size_t start = 0;
  for (std::size_t end = 0; (end = text.find_first_of("\r\n", start)) != std::string_view::npos;) {
    result.emplace_back(text.substr(start, end - start));
    start = end + (text.substr(end).starts_with("\r\n") ? 2 : 1);
  }
  result.emplace_back(text.substr(start));
  return result;
}

bool isWordCharacter(char32_t character) {
  if (character < 0x80) {
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') ||
           (character >= 'a' && character <= 'z');
  }
  const bool latinSign = character < 0xC0 && character != 0xAA && character != 0xB5 && character != 0xBA;
  const bool generalPunctuation = character >= 0x2000 && character < 0x2070;
  const bool cjkPunctuation = character >= 0x3000 && character < 0x3004;
  return !latinSign && character != 0xD7 && character != 0xF7 && !generalPunctuation && !cjkPunctuation;
}

std::vector<Value> words(std::string_view text) {
  std::vector<Value> result;
  std::size_t start = text.size();
  for (std::size_t offset = 0; offset < text.size();) {
    const std::size_t here = offset;
    const bool inWord = isWordCharacter(UTF8::decode(text, offset));
    // An apostrophe between two letters belongs to the word: "isn't".
    const bool joins =
        text[here] == '\'' && start < here && offset < text.size() && isWordCharacter(text[offset] & 0x7F);
    if (inWord) {
      start = std::min(start, here);
    } else if (!joins && start < here) {
      result.emplace_back(text.substr(start, here - start));
      start = text.size();
    }
  }
  if (start < text.size())
    result.emplace_back(text.substr(start));
  return result;
}

struct Separator {
  std::size_t offset = std::string_view::npos;
  std::size_t length = 0;
};

/// Finds the next of several separators, none of them empty, without regard to case.
class SeparatorFinder {
 public:
  SeparatorFinder(std::string_view text, const List& delimiters) : text_(text) {
    for (const Value& delimiter : delimiters.items())
      delimiters_.emplace_back(toText(delimiter).view());
    std::erase(delimiters_, std::string());
  }

  [[nodiscard]] bool isIdle() const { return delimiters_.empty(); }

  [[nodiscard]] Separator next(std::size_t start) const {
    for (std::size_t offset = start; offset < text_.size(); offset = UTF8::skip(text_, offset, 1)) {
      for (const std::string& delimiter : delimiters_)
        if (compareIgnoringCase(text_.substr(offset, delimiter.size()), delimiter) == std::strong_ordering::equal)
          return {offset, delimiter.size()};
    }
    return {};
  }

 private:
  std::string_view text_;
  std::vector<std::string> delimiters_;
};

std::vector<Value> characters(std::string_view text) {
  std::vector<Value> result;
  for (std::size_t offset = 0; offset < text.size();) {
    const std::size_t end = UTF8::skip(text, offset, 1);
    result.emplace_back(text.substr(offset, end - offset));
    offset = end;
  }
  return result;
}

std::vector<Value> textItems(std::string_view text, const List& delimiters) {
  const SeparatorFinder finder(text, delimiters);
  if (finder.isIdle())
    return characters(text);
  std::vector<Value> result;
  std::size_t start = 0;
  for (Separator next = finder.next(start); next.length > 0; next = finder.next(start)) {
    result.emplace_back(text.substr(start, next.offset - start));
    start = next.offset + next.length;
  }
  result.emplace_back(text.substr(start));
  return result;
}

}  // namespace

void TextParts::setDelimiters(const List& delimiters) {
  delimiters_ = *deepCopy(delimiters).getIf<List>();
  part_ = nullptr;
}

const List& TextParts::of(const Text& text, const ClassDescription& part) {
  const bool isKnown = part_ == &part && text_.size() == text.size() && text_.view().data() == text.view().data();
  if (!isKnown) {
    text_ = text;
    part_ = &part;
    parts_ = List(&part == &BuiltInClasses::word        ? words(text.view())
                  : &part == &BuiltInClasses::paragraph ? paragraphs(text.view())
                                                        : textItems(text.view(), delimiters_));
  }
  return parts_;
}

}  // namespace AppleScript
