#pragma once

#include <cstddef>
#include <optional>

#include <glib.h>

namespace DesktopSupport {

/// The alignment of values of a type, by the first character of its signature.
constexpr std::size_t wireAlignment(char type) {
  switch (type) {
    case 'n':
    case 'q':
      return 2;
    case 'b':
    case 'i':
    case 'u':
    case 'h':
    case 's':
    case 'o':
    case 'a':
      return 4;
    case 'x':
    case 't':
    case 'd':
    case '(':
    case '{':
      return 8;
    default:
      return 1;
  }
}

/// The size of an array's element if GLib keeps such an array in memory as D-Bus transmits it.
constexpr std::optional<std::size_t> plainElementSize(char type) {
  switch (type) {
    case 'y':
    case 'n':
    case 'q':
    case 'i':
    case 'u':
    case 'x':
    case 't':
    case 'd':
      return wireAlignment(type);
    default:
      return std::nullopt;
  }
}

inline char firstCharacter(const GVariantType* type) {
  return *g_variant_type_peek_string(type);
}

}  // namespace DesktopSupport
