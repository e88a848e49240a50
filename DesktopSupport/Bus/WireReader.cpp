#include "DesktopSupport/Bus/WireReader.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <string>
#include <vector>

#include "DesktopSupport/Bus/BusNames.h"
#include "DesktopSupport/Bus/WireTypes.h"
#include "DesktopSupport/Bus/WireWriter.h"
#include "DesktopSupport/System/Text.h"

namespace DesktopSupport {

namespace {

/// Values that become the children of a container, which takes references of its own.
class Children {
 public:
  void add(VariantHandle child) {
    pointers_.push_back(child.get());
    owned_.push_back(std::move(child));
  }
  [[nodiscard]] GVariant* const* data() const { return pointers_.data(); }
  [[nodiscard]] gsize size() const { return pointers_.size(); }

 private:
  std::vector<GVariant*> pointers_;
  std::vector<VariantHandle> owned_;
};

}  // namespace

bool WireReader::align(std::size_t boundary) {
  const std::size_t aligned = (position_ + boundary - 1) / boundary * boundary;
  if (aligned > bytes_.size())
    return false;
  position_ = aligned;
  return true;
}

template <typename Number>
std::optional<Number> WireReader::readFixed() {
  if (!align(sizeof(Number)) || bytes_.size() - position_ < sizeof(Number))
    return std::nullopt;
  std::array<char, sizeof(Number)> bytes;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled below
  std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(position_), sizeof(Number), bytes.begin());
  if (isSwapped_)
    std::ranges::reverse(bytes);
  position_ += sizeof(Number);
  return std::bit_cast<Number>(bytes);
}

std::optional<std::uint8_t> WireReader::readByte() {
  return readFixed<std::uint8_t>();
}

std::optional<std::string_view> WireReader::readText(std::size_t length) {
  if (bytes_.size() - position_ <= length)
    return std::nullopt;
  const std::string_view text = bytes_.substr(position_, length + 1);
  position_ += length + 1;
  return text.back() == '\0' ? std::optional(text) : std::nullopt;
}

std::optional<std::string_view> WireReader::readSignature() {
  const auto length = readByte();
  const auto text = length ? readText(*length) : std::nullopt;
  if (!text || !isBusSignature(text->substr(0, *length)))
    return std::nullopt;
  return text->substr(0, *length);
}

VariantHandle WireReader::readValue(const GVariantType* type) {
  return read(type, deepestBusValue);
}

template <typename Number, typename Make>
VariantHandle WireReader::readNumberAs(Make make) {
  const auto number = readFixed<Number>();
  return number ? owned(make(*number)) : nullptr;
}

VariantHandle WireReader::read(const GVariantType* type, int depth) {
  switch (firstCharacter(type)) {
    case 'b':
      return readBoolean();
    case 'y':
      return readNumberAs<guint8>(&g_variant_new_byte);
    case 'n':
      return readNumberAs<gint16>(&g_variant_new_int16);
    case 'q':
      return readNumberAs<guint16>(&g_variant_new_uint16);
    case 'i':
      return readNumberAs<gint32>(&g_variant_new_int32);
    case 'u':
      return readNumberAs<guint32>(&g_variant_new_uint32);
    case 'h':
      return readNumberAs<gint32>(&g_variant_new_handle);
    case 'x':
      return readNumberAs<gint64>(&g_variant_new_int64);
    case 't':
      return readNumberAs<guint64>(&g_variant_new_uint64);
    case 'd':
      return readNumberAs<gdouble>(&g_variant_new_double);
    case 's':
    case 'o':
      return readString(type);
    case 'g':
      return readSignatureValue();
    case 'v':
      return depth > 0 ? readVariant(depth - 1) : nullptr;
    case 'a':
      return depth > 0 ? readArray(type, depth - 1) : nullptr;
    case '(':
      return depth > 0 ? readTuple(type, depth - 1) : nullptr;
    case '{':
      return depth > 0 ? readEntry(type, depth - 1) : nullptr;
    default:
      return nullptr;
  }
}

VariantHandle WireReader::readBoolean() {
  const auto number = readNumber();
  return number && *number <= 1 ? owned(g_variant_new_boolean(*number == 1 ? TRUE : FALSE)) : nullptr;
}

VariantHandle WireReader::readString(const GVariantType* type) {
  const auto length = readNumber();
  const auto text = length ? readText(*length) : std::nullopt;
  if (!text || !isUTF8(text->substr(0, *length)))
    return nullptr;
  if (firstCharacter(type) == 'o' && g_variant_is_object_path(text->data()) == FALSE)
    return nullptr;
  // GLib's own constructor would check the text once more.
  void* const copy = g_memdup2(text->data(), text->size());
  return owned(g_variant_new_from_data(type, copy, text->size(), /*trusted=*/TRUE, &g_free, copy));
}

VariantHandle WireReader::readSignatureValue() {
  const auto signature = readSignature();
  return signature ? owned(g_variant_new_signature(std::string(*signature).c_str())) : nullptr;
}

VariantHandle WireReader::readVariant(int depth) {
  const auto text = readSignature();
  const std::string signature(text.value_or(""));
  if (g_variant_type_string_is_valid(signature.c_str()) == FALSE)
    return nullptr;  // none, or several types
  const VariantHandle value = read(G_VARIANT_TYPE(signature.c_str()), depth);
  return value ? owned(g_variant_new_variant(value.get())) : nullptr;
}

VariantHandle WireReader::readArray(const GVariantType* type, int depth) {
  const GVariantType* const element = g_variant_type_element(type);
  const auto length = readNumber();
  if (!length || *length > longestBusArray || !align(wireAlignment(firstCharacter(element))) ||
      bytes_.size() - position_ < *length)
    return nullptr;
  const std::size_t end = position_ + *length;
  if (const auto size = plainElementSize(firstCharacter(element)); size && !isSwapped_ && *length % *size == 0) {
    const char* const elements = bytes_.data() + std::exchange(position_, end);
    return owned(g_variant_new_fixed_array(element, elements, *length / *size, *size));
  }
  Children children;
  while (position_ < end) {
    VariantHandle child = read(element, depth);
    if (!child)
      return nullptr;
    children.add(std::move(child));
  }
  return position_ == end ? owned(g_variant_new_array(element, children.data(), children.size())) : nullptr;
}

VariantHandle WireReader::readTuple(const GVariantType* type, int depth) {
  if (!align(8))
    return nullptr;
  Children children;
  for (const auto* each = g_variant_type_first(type); each != nullptr; each = g_variant_type_next(each)) {
    VariantHandle child = read(each, depth);
    if (!child)
      return nullptr;
    children.add(std::move(child));
  }
  return owned(g_variant_new_tuple(children.data(), children.size()));
}

VariantHandle WireReader::readEntry(const GVariantType* type, int depth) {
  if (!align(8))
    return nullptr;
  const VariantHandle key = read(g_variant_type_key(type), depth);
  const VariantHandle value = key ? read(g_variant_type_value(type), depth) : nullptr;
  return value ? owned(g_variant_new_dict_entry(key.get(), value.get())) : nullptr;
}

}  // namespace DesktopSupport
