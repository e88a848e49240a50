#include "DesktopSupport/Bus/WireWriter.h"

#include <cstring>

#include "DesktopSupport/Bus/BusNames.h"
#include "DesktopSupport/Bus/WireTypes.h"
#include "DesktopSupport/System/GLibHandles.h"

namespace DesktopSupport {

template <typename Number>
void WireWriter::writeFixed(Number number) {
  align(sizeof number);
  bytes_.append(reinterpret_cast<const char*>(&number), sizeof number);
}

void WireWriter::writeString(std::string_view text) {
  writeNumber(static_cast<std::uint32_t>(text.size()));
  bytes_.append(text);
  bytes_.push_back('\0');
}

void WireWriter::writeSignature(std::string_view signature) {
  writeByte(static_cast<std::uint8_t>(signature.size()));
  bytes_.append(signature);
  bytes_.push_back('\0');
}

void WireWriter::replaceNumber(std::size_t offset, std::size_t number) {
  const auto written = static_cast<std::uint32_t>(number);
  std::memcpy(bytes_.data() + offset, &written, sizeof written);
}

bool WireWriter::write(GVariant* value, int depth) {
  gsize length = 0;
  switch (g_variant_classify(value)) {
    case G_VARIANT_CLASS_BOOLEAN:
      writeNumber(g_variant_get_boolean(value) != FALSE ? 1 : 0);
      return true;
    case G_VARIANT_CLASS_BYTE:
      writeByte(g_variant_get_byte(value));
      return true;
    case G_VARIANT_CLASS_INT16:
      writeFixed(g_variant_get_int16(value));
      return true;
    case G_VARIANT_CLASS_UINT16:
      writeFixed(g_variant_get_uint16(value));
      return true;
    case G_VARIANT_CLASS_INT32:
      writeFixed(g_variant_get_int32(value));
      return true;
    case G_VARIANT_CLASS_UINT32:
      writeFixed(g_variant_get_uint32(value));
      return true;
    case G_VARIANT_CLASS_INT64:
      writeFixed(g_variant_get_int64(value));
      return true;
    case G_VARIANT_CLASS_UINT64:
      writeFixed(g_variant_get_uint64(value));
      return true;
    case G_VARIANT_CLASS_DOUBLE:
      writeFixed(g_variant_get_double(value));
      return true;
    case G_VARIANT_CLASS_STRING:
    case G_VARIANT_CLASS_OBJECT_PATH: {
      const gchar* const text = g_variant_get_string(value, &length);
      writeString({text, length});
      return true;
    }
    case G_VARIANT_CLASS_SIGNATURE: {
      const gchar* const text = g_variant_get_string(value, &length);
      const std::string_view signature(text, length);
      writeSignature(signature);
      return isBusSignature(signature);
    }
    case G_VARIANT_CLASS_VARIANT:
      return depth > 0 && writeVariant(value, depth - 1);
    case G_VARIANT_CLASS_ARRAY:
      return depth > 0 && writeArray(value, depth - 1);
    case G_VARIANT_CLASS_TUPLE:
    case G_VARIANT_CLASS_DICT_ENTRY:
      align(8);
      return depth > 0 && writeChildren(value, depth - 1);
    default:
      return false;
  }
}

bool WireWriter::writeChildren(GVariant* container, int depth) {
  const gsize count = g_variant_n_children(container);
  for (gsize index = 0; index < count; ++index) {
    const VariantHandle child(g_variant_get_child_value(container, index));
    if (!write(child.get(), depth))
      return false;
  }
  return true;
}

bool WireWriter::writeArray(GVariant* array, int depth) {
  const char element = firstCharacter(g_variant_type_element(g_variant_get_type(array)));
  align(4);
  const std::size_t lengthAt = size();
  writeNumber(0);
  align(wireAlignment(element));
  const std::size_t start = size();
  if (const auto elementSize = plainElementSize(element)) {
    gsize count = 0;
    const auto* const elements = static_cast<const char*>(g_variant_get_fixed_array(array, &count, *elementSize));
    bytes_.append(elements, count * *elementSize);
  } else if (!writeChildren(array, depth)) {
    return false;
  }
  replaceNumber(lengthAt, size() - start);
  return size() - start <= longestBusArray;
}

bool WireWriter::writeVariant(GVariant* variant, int depth) {
  const VariantHandle value(g_variant_get_variant(variant));
  const std::string_view signature = g_variant_get_type_string(value.get());
  if (!isBusSignature(signature))
    return false;
  writeSignature(signature);
  return write(value.get(), depth);
}

}  // namespace DesktopSupport
