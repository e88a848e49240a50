#pragma once

#include <string_view>
#include <vector>

namespace BrimlaceTextView {

/// The lines of `text`, empty ones included, each without its line feed. Only a line feed ends a line; a carriage
/// return is part of its line. No line follows a final line feed, and an empty text has no lines. The lines point into
/// `text`.
std::vector<std::string_view> lines(std::string_view text);

}  // namespace BrimlaceTextView
