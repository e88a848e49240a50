#pragma once

#include <filesystem>
#include <string>
#include <variant>
#include <vector>

#include "Platform/URL.h"

namespace Platform {

/// A picture from a file, with what it shows for those who can't see it.
struct Picture {
  std::filesystem::path file;
  std::string description;
};

/// A line that says what the window is about.
struct Heading {
  std::string text;
};

/// A text that the user can select.
struct Text {
  std::string text;
};

/// A text that opens a URL.
struct Link {
  std::string text;
  URL url;
};

using WindowElement = std::variant<Picture, Heading, Text, Link>;

/// What a window shows: its elements from top to bottom, in the desktop's own style.
struct WindowContent {
  std::string title;
  std::vector<WindowElement> elements = {};
};

}  // namespace Platform
