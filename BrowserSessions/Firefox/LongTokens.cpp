#include "BrowserSessions/Firefox/LongTokens.h"

namespace BrowserSessions {

namespace {

// Where a reader of JSON is that tells strings and numbers from what is between them.
class TokenReader {
 public:
  // Reads the next byte. Yields whether it is to be kept.
  bool read(char byte) {
    const bool isPart = isInString_ ? byte != '"' || escaped_ > 0 : isOfNumber(byte);
    if (!isPart)
      isInString_ = !isInString_ && byte == '"';
    isCut_ = isPart && (isCut_ || (size_ >= maximumSize_ && escaped_ == 0));
    size_ = isPart ? size_ + 1 : 0;
    followEscape(byte);
    return !isCut_;
  }

  explicit TokenReader(std::size_t maximumSize) : maximumSize_(maximumSize) {}

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
  // How many bytes of an escape are missing, if it is one with four digits.
  int escaped_ = 0;
};

}  // namespace

void cutLongTokens(std::string& json, std::size_t maximumSize) {
  TokenReader reader(maximumSize);
  std::erase_if(json, [&](char byte) { return !reader.read(byte); });
}

}  // namespace BrowserSessions
