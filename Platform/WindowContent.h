#pragma once

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "Platform/Text/URL.h"

namespace Platform {

/// A picture from a file.
struct Picture {
  /// In a format that the desktop reads, such as PNG.
  std::filesystem::path file;
  /// What it shows, for screen readers.
  std::string description;
};

/// A heading: what the window is about.
struct Heading {
  /// The whole line, in the user's language.
  std::string text;
};

/// A text that the user can select.
struct Text {
  /// One paragraph or several, in the user's language.
  std::string text;
};

/// A text that opens a URL.
struct Link {
  /// What the user reads.
  std::string text;
  /// What is opened, by the desktop's handler for its scheme.
  URL url;
};

/// A labelled whole number that the user can change by typing or step by step (NSStepper with its text field).
struct NumberField {
  /// What the number is.
  std::string label;
  /// The number at first. A number outside the bounds becomes the nearer bound.
  int value = 0;
  /// The smallest number that the user can enter.
  int minimum = 0;
  /// The largest number that the user can enter. If it is less than the minimum, the minimum is the only number.
  int maximum = 0;
  /// Called on the main thread with each number that the user changes it to, always within the bounds; may be empty. A
  /// number that is still being typed when the window closes is reported before the window's delegate is told. The
  /// callback may close the window, but not destroy it.
  std::function<void(int value)> onChange = {};

  /// The number closest to `number` that the field can show.
  [[nodiscard]] int nearest(int number) const { return std::max(minimum, std::min(number, maximum)); }
};

/// A labelled list of options, of which the user selects one (NSPopUpButton).
struct Choice {
  /// What the user chooses.
  std::string label;
  /// The options. If there are none, the user cannot choose.
  std::vector<std::string> options = {};
  /// The index of the option selected at first. If there is no such option, the first one is selected.
  std::size_t selected = 0;
  /// Called on the main thread with the index of each option that the user selects; may be empty. The callback may
  /// close the window, but not destroy it.
  std::function<void(std::size_t index)> onChange = {};

  /// `index`, or 0 if there is no such option.
  [[nodiscard]] std::size_t existing(std::size_t index) const { return index < options.size() ? index : 0; }
};

/// One element of a window.
using WindowElement = std::variant<Picture, Heading, Text, Link, NumberField, Choice>;

/// What a window shows: its elements from top to bottom, in the desktop's own style.
struct WindowContent {
  /// The title bar's text.
  std::string title;
  /// From top to bottom.
  std::vector<WindowElement> elements = {};
};

}  // namespace Platform
