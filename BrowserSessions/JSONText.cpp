#include "BrowserSessions/JSONText.h"

#include <algorithm>
#include <string_view>

namespace BrowserSessions {

namespace {

// Follows a JSON text byte by byte, and tells strings and numbers from what is between them.
class TokenReader {
 public:
  explicit TokenReader(std::size_t maximumSize) : maximumSize_(maximumSize) {}

  // Reads the next byte. Returns whether to keep it.
  bool read(char byte) {
    const bool isPart = isInString_ ? byte != '"' || escaped_ > 0 : isOfNumber(byte);
    if (!isPart)
      isInString_ = !isInString_ && byte == '"';
    isCut_ = isPart && (isCut_ || (size_ >= maximumSize_ && escaped_ == 0));
    size_ = isPart ? size_ + 1 : 0;
    followEscape(byte);
    return !isCut_;
  }

 private:
  static bool isOfNumber(char byte) {
    return (byte >= '0' && byte <= '9') || byte == '.' || byte == '-' || byte == '+' || byte == 'e' || byte == 'E';
  }

  void followEscape(char byte) {
    constexpr int isBegun = 5;
    if (escaped_ == isBegun)
      escaped_ = byte == 'u' ? isBegun - 1 : 0;
    else if (escaped_ > 0)
      --escaped_;
    else if (isInString_ && byte == '\\')
      escaped_ = isBegun;
  }

  std::size_t maximumSize_;
  bool isInString_ = false;
  bool isCut_ = false;
  std::size_t size_ = 0;
  // The number of bytes that the current escape may still have.
  int escaped_ = 0;
};

enum class Escape { other, highSurrogate, lowSurrogate };

// The half of a surrogate pair that the escape at `position` is for. There is a backslash at `position`.
Escape escapeAt(std::string_view json, std::size_t position) {
  const std::string_view escape = json.substr(std::min(position, json.size()), escapeLength);
  if (escape.size() < escapeLength || !escape.starts_with("\\u") || (escape[2] != 'd' && escape[2] != 'D'))
    return Escape::other;
  const std::string_view high = "89abAB";
  const std::string_view low = "cdefCDEF";
  if (high.contains(escape[3]))
    return Escape::highSurrogate;
  return low.contains(escape[3]) ? Escape::lowSurrogate : Escape::other;
}

}  // namespace

void cutLongTokens(std::string& json, std::size_t maximumSize) {
  TokenReader reader(maximumSize);
  std::erase_if(json, [&](char byte) { return !reader.read(byte); });
}

void replaceLoneSurrogates(std::string& json) {
  for (auto position = json.find('\\'); position != std::string::npos; position = json.find('\\', position)) {
    const Escape escape = escapeAt(json, position);
    if (escape == Escape::other) {
      position += 2;
    } else if (escape == Escape::highSurrogate && escapeAt(json, position + escapeLength) == Escape::lowSurrogate) {
      position += 2 * escapeLength;
    } else {
      json.replace(position, escapeLength, "\\ufffd");
      position += escapeLength;
    }
  }
}

}  // namespace BrowserSessions
