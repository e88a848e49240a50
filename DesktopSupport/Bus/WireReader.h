#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "DesktopSupport/System/GLibHandles.h"

namespace DesktopSupport {

/// Reads values as D-Bus transmits them, from bytes that may be anything. Each is aligned relative to the first byte.
class WireReader {
 public:
  /// `isSwapped` says that the bytes of each number are in the other order than this machine's.
  WireReader(std::string_view bytes, bool isSwapped) : bytes_(bytes), isSwapped_(isSwapped) {}

  /// Each fails if the bytes end too early.
  [[nodiscard]] bool align(std::size_t boundary);
  std::optional<std::uint8_t> readByte();
  std::optional<std::uint32_t> readNumber() { return readFixed<std::uint32_t>(); }
  /// Fails also if it is no signature of values that D-Bus carries.
  std::optional<std::string_view> readSignature();
  /// A value of this type, with a signature that D-Bus allows. Null if the bytes are not one.
  VariantHandle readValue(const GVariantType* type);

  [[nodiscard]] std::size_t position() const { return position_; }
  [[nodiscard]] bool isAtEnd() const { return position_ == bytes_.size(); }

 private:
  template <typename Number>
  std::optional<Number> readFixed();
  template <typename Number, typename Make>
  VariantHandle readNumberAs(Make make);
  /// The text with the NUL at its end.
  std::optional<std::string_view> readText(std::size_t length);
  VariantHandle read(const GVariantType* type, int depth);
  VariantHandle readBoolean();
  VariantHandle readString(const GVariantType* type);
  VariantHandle readSignatureValue();
  VariantHandle readVariant(int depth);
  VariantHandle readArray(const GVariantType* type, int depth);
  VariantHandle readTuple(const GVariantType* type, int depth);
  VariantHandle readEntry(const GVariantType* type, int depth);

  std::string_view bytes_;
  std::size_t position_ = 0;
  bool isSwapped_;
};

}  // namespace DesktopSupport
