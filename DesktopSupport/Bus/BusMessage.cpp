#include "DesktopSupport/Bus/BusMessage.h"

#include <bit>
#include <utility>

#include "DesktopSupport/Bus/BusNames.h"
#include "DesktopSupport/Bus/WireReader.h"
#include "DesktopSupport/Bus/WireWriter.h"
#include "DesktopSupport/System/DisplayableText.h"

namespace DesktopSupport {

namespace {

constexpr std::size_t longestMessage = 128UL << 20;
constexpr std::uint8_t protocolVersion = 1;

constexpr char littleEndian = 'l';
constexpr char bigEndian = 'B';
constexpr char ownOrder = std::endian::native == std::endian::little ? littleEndian : bigEndian;
constexpr std::size_t argumentsSizeAt = 4;
constexpr std::size_t fieldsSizeAt = 12;

namespace Flag {
constexpr std::uint8_t noReplyExpected = 1;
constexpr std::uint8_t noAutoStart = 2;
}  // namespace Flag

namespace Field {
constexpr std::uint8_t path = 1;
constexpr std::uint8_t interface = 2;
constexpr std::uint8_t member = 3;
constexpr std::uint8_t errorName = 4;
constexpr std::uint8_t replySerial = 5;
constexpr std::uint8_t destination = 6;
constexpr std::uint8_t sender = 7;
constexpr std::uint8_t signature = 8;
}  // namespace Field

std::size_t aligned(std::size_t size) {
  return (size + 7) / 8 * 8;
}

bool isAllowed(const BusMessage& message) {
  return (message.destination.empty() || isBusName(message.destination)) &&
         (message.path.empty() || g_variant_is_object_path(message.path.c_str()) != FALSE) &&
         (message.interface.empty() || isInterfaceName(message.interface)) &&
         (message.member.empty() || isMemberName(message.member)) &&
         (message.errorName.empty() || isInterfaceName(message.errorName));
}

/// Whether the message has what its type needs.
bool isComplete(const BusMessage& message) {
  using Type = BusMessage::Type;
  switch (message.type) {
    case Type::call:
      return !message.path.empty() && !message.member.empty();
    case Type::signal:
      return !message.path.empty() && !message.interface.empty() && !message.member.empty();
    case Type::error:
      return !message.errorName.empty() && message.answeredSerial != 0;
    case Type::answer:
      return message.answeredSerial != 0;
  }
  return true;
}

void beginField(WireWriter& writer, std::uint8_t code, std::string_view type) {
  writer.align(8);
  writer.writeByte(code);
  writer.writeSignature(type);
}

void writeField(WireWriter& writer, std::uint8_t code, std::string_view type, std::string_view text) {
  if (text.empty())
    return;
  beginField(writer, code, type);
  writer.writeString(text);
}

void writeFields(WireWriter& writer, const BusMessage& message, std::string_view signature) {
  writeField(writer, Field::path, "o", message.path);
  writeField(writer, Field::interface, "s", message.interface);
  writeField(writer, Field::member, "s", message.member);
  writeField(writer, Field::errorName, "s", message.errorName);
  if (message.answeredSerial != 0) {
    beginField(writer, Field::replySerial, "u");
    writer.writeNumber(message.answeredSerial);
  }
  writeField(writer, Field::destination, "s", message.destination);
  if (!signature.empty()) {
    beginField(writer, Field::signature, "g");
    writer.writeSignature(signature);
  }
}

/// The types of the elements of a tuple, "su" for "(su)".
std::string_view elementTypes(GVariant* tuple) {
  std::string_view type = g_variant_get_type_string(tuple);
  type.remove_prefix(1);
  type.remove_suffix(1);
  return type;
}

BusError notCarried(const char* reason) {
  return {.name = std::string(BusErrorName::invalidArguments), .message = reason};
}

/// Takes one field of the header. Fails if it has not the type that it should have; unknown ones are skipped.
bool take(std::uint8_t code, GVariant* value, BusMessage& message, std::string& signature) {
  const auto takeText = [value](const char* type, std::string& text) {
    if (g_variant_is_of_type(value, G_VARIANT_TYPE(type)) == FALSE)
      return false;
    text = g_variant_get_string(value, nullptr);
    return true;
  };
  switch (code) {
    case Field::path:
      return takeText("o", message.path);
    case Field::interface:
      return takeText("s", message.interface);
    case Field::member:
      return takeText("s", message.member);
    case Field::errorName:
      return takeText("s", message.errorName);
    case Field::destination:
      return takeText("s", message.destination);
    case Field::sender:
      return takeText("s", message.sender);
    case Field::signature:
      return takeText("g", signature);
    case Field::replySerial:
      if (g_variant_is_of_type(value, G_VARIANT_TYPE_UINT32) == FALSE)
        return false;
      message.answeredSerial = g_variant_get_uint32(value);
      return true;
    default:
      return true;
  }
}

/// Reads the fields of the header, which end at the offset `end`, and the types of the arguments.
bool readFields(WireReader& reader, std::size_t end, BusMessage& message, std::string& signature) {
  while (reader.position() < end) {
    if (!reader.align(8))
      return false;
    const std::uint8_t code = reader.readByte().value_or(0);
    const VariantHandle boxed = reader.readValue(G_VARIANT_TYPE_VARIANT);
    if (!boxed)
      return false;
    const VariantHandle value(g_variant_get_variant(boxed.get()));
    if (!take(code, value.get(), message, signature))
      return false;
  }
  return reader.position() == end && reader.align(8);
}

}  // namespace

std::optional<std::size_t> busMessageSize(std::string_view start) {
  const char order = start.empty() ? '\0' : start.front();
  if (start.size() < busMessageStart || (order != littleEndian && order != bigEndian))
    return std::nullopt;
  WireReader reader(start.substr(argumentsSizeAt), order != ownOrder);
  const std::size_t arguments = reader.readNumber().value_or(0);
  static_cast<void>(reader.readNumber());
  const std::size_t fields = reader.readNumber().value_or(0);
  const std::size_t size = aligned(busMessageStart + fields) + arguments;
  return fields <= longestBusArray && size <= longestMessage ? std::optional(size) : std::nullopt;
}

std::expected<std::string, BusError> encoded(const BusMessage& message) {
  const bool isForNobody = message.type == BusMessage::Type::call && message.destination.empty();
  if (!isAllowed(message) || !isComplete(message) || isForNobody)
    return std::unexpected(notCarried("D-Bus allows no such name."));
  GVariant* const arguments = message.arguments.get();
  const std::string_view signature = arguments != nullptr ? elementTypes(arguments) : "";
  if (!isBusSignature(signature))
    return std::unexpected(notCarried("D-Bus has no such types."));

  constexpr std::size_t usualHeader = 256;
  WireWriter writer(usualHeader + (arguments != nullptr ? g_variant_get_size(arguments) : 0));
  writer.writeByte(static_cast<std::uint8_t>(ownOrder));
  writer.writeByte(static_cast<std::uint8_t>(message.type));
  const int flags = (message.wantsAnswer ? 0 : Flag::noReplyExpected) | (message.mayActivate ? 0 : Flag::noAutoStart);
  writer.writeByte(static_cast<std::uint8_t>(flags));
  writer.writeByte(protocolVersion);
  writer.writeNumber(0);
  writer.writeNumber(message.serial);
  writer.writeNumber(0);
  writeFields(writer, message, signature);
  writer.replaceNumber(fieldsSizeAt, writer.size() - busMessageStart);
  writer.align(8);

  const std::size_t start = writer.size();
  if (!signature.empty() && !writer.writeValue(arguments))
    return std::unexpected(notCarried("D-Bus cannot carry the arguments."));
  if (writer.size() > longestMessage)
    return std::unexpected(notCarried("The arguments are too long for D-Bus."));
  writer.replaceNumber(argumentsSizeAt, writer.size() - start);
  return writer.take();
}

std::optional<BusMessage> decodedMessage(std::string_view bytes) {
  if (busMessageSize(bytes) != bytes.size())
    return std::nullopt;
  WireReader reader(bytes, bytes.front() != ownOrder);
  BusMessage message;
  static_cast<void>(reader.readByte());
  message.type = static_cast<BusMessage::Type>(reader.readByte().value_or(0));
  const std::uint8_t flags = reader.readByte().value_or(0);
  message.wantsAnswer = (flags & Flag::noReplyExpected) == 0;
  message.mayActivate = (flags & Flag::noAutoStart) == 0;
  if (reader.readByte() != protocolVersion)
    return std::nullopt;
  static_cast<void>(reader.readNumber());
  message.serial = reader.readNumber().value_or(0);
  const std::size_t fieldsSize = reader.readNumber().value_or(0);
  std::string signature;
  if (!readFields(reader, busMessageStart + fieldsSize, message, signature) || !isAllowed(message) ||
      !isComplete(message))
    return std::nullopt;
  message.arguments = reader.readValue(G_VARIANT_TYPE(('(' + signature + ')').c_str()));
  if (!message.arguments || !reader.isAtEnd())
    return std::nullopt;
  return message;
}

BusError errorIn(const BusMessage& message) {
  BusError error{.name = message.errorName, .message = message.errorName};
  GVariant* const arguments = message.arguments.get();
  if (arguments == nullptr || g_variant_n_children(arguments) == 0)
    return error;
  const VariantHandle text(g_variant_get_child_value(arguments, 0));
  if (g_variant_is_of_type(text.get(), G_VARIANT_TYPE_STRING) != FALSE)
    error.message = displayable(g_variant_get_string(text.get(), nullptr));
  return error;
}

}  // namespace DesktopSupport
