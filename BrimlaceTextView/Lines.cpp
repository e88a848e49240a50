#include "BrimlaceTextView/Lines.h"

#include <algorithm>

namespace BrimlaceTextView {

std::vector<std::string_view> lines(std::string_view text) {
  std::vector<std::string_view> result;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    result.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return result;
}

}  // namespace BrimlaceTextView
