#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include <glib.h>

namespace DesktopSupport {

/// D-Bus allows no longer array, in bytes.
inline constexpr std::size_t longestBusArray = 64UL << 20;
/// How deep arrays, structs and variants may be nested in each other.
inline constexpr int deepestBusValue = 64;

/// Writes values as D-Bus transmits them, in this machine's byte order. Each is aligned relative to the first byte.
class WireWriter {
 public:
  explicit WireWriter(std::size_t expectedSize) { bytes_.reserve(expectedSize); }

  void align(std::size_t boundary) { bytes_.resize((bytes_.size() + boundary - 1) / boundary * boundary); }
  void writeByte(std::uint8_t byte) { bytes_.push_back(static_cast<char>(byte)); }
  void writeNumber(std::uint32_t number) { writeFixed(number); }
  void writeString(std::string_view text);
  void writeSignature(std::string_view signature);
  /// Returns false if D-Bus cannot carry the value: it is too long or too deep, or has file handles or types that only
  /// GLib knows.
  [[nodiscard]] bool writeValue(GVariant* value) { return write(value, deepestBusValue); }

  /// Replaces the number at this offset.
  void replaceNumber(std::size_t offset, std::size_t number);

  [[nodiscard]] std::size_t size() const { return bytes_.size(); }
  std::string take() { return std::move(bytes_); }

 private:
  template <typename Number>
  void writeFixed(Number number);
  bool write(GVariant* value, int depth);
  bool writeChildren(GVariant* container, int depth);
  bool writeArray(GVariant* array, int depth);
  bool writeVariant(GVariant* variant, int depth);

  std::string bytes_;
};

}  // namespace DesktopSupport
