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
  /// What it shows, for those who can't see it.
  std::string description;
};

/// A line that says what the window is about.
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

/// A whole number that the user can change, typing it or step by step, beside the label that says what it is (NSStepper
/// with its text field).
struct NumberField {
  /// What the number is for.
  std::string label;
  /// The number at first; what lies outside the bounds is taken to the nearer one.
  int value = 0;
  /// The smallest number there is to choose.
  int minimum = 0;
  /// The largest number there is to choose. Where it is below the minimum, the minimum is the only number.
  int maximum = 0;
  /// Called on the main thread with each number that the user has changed it to, always within the bounds; may be
  /// empty. A number that is still being typed when the window closes comes before the window's delegate is told. It
  /// may close the window, but not destroy it.
  std::function<void(int value)> onChange = {};

  /// The number closest to `number` that the field can show.
  [[nodiscard]] int nearest(int number) const { return std::max(minimum, std::min(number, maximum)); }
};

/// One of several options, of which the user selects another, beside the label that says what it is (NSPopUpButton).
struct Choice {
  /// What is to be chosen.
  std::string label;
  /// What there is to choose from; where it is empty, the user cannot choose.
  std::vector<std::string> options = {};
  /// The index of the option selected at first; where there is no such option, the first one is.
  std::size_t selected = 0;
  /// Called on the main thread with the index of each option that the user has changed it to; may be empty. It may
  /// close the window, but not destroy it.
  std::function<void(std::size_t index)> onChange = {};

  /// The index of the option that is shown for `index`.
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
