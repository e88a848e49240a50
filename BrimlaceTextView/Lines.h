#pragma once

#include <string_view>
#include <vector>

namespace BrimlaceTextView {

/// The lines of `text`, each without its line feed, empty ones included. Only the line feed ends a line, so a carriage
/// return stays part of its line; behind a final line feed there is no further line, and an empty text has none. The
/// lines point into `text`.
std::vector<std::string_view> lines(std::string_view text);

}  // namespace BrimlaceTextView
