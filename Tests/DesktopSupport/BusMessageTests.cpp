#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "DesktopSupport/Bus/BusMessage.h"
#include "DesktopSupport/Bus/WireWriter.h"

namespace {

using DesktopSupport::BusMessage;
using DesktopSupport::CharsHandle;
using DesktopSupport::decodedMessage;
using DesktopSupport::encoded;
using DesktopSupport::owned;
using DesktopSupport::VariantHandle;
using namespace std::string_literals;
namespace BusErrorName = DesktopSupport::BusErrorName;

BusMessage callWith(VariantHandle arguments) {
  return {.serial = 7,
          .destination = "com.example.Some-App",
          .path = "/com/example",
          .interface = "com.example.Interface",
          .member = "Method",
          .arguments = std::move(arguments)};
}

VariantHandle parsed(const std::string& text) {
  return owned(g_variant_new_parsed(text.c_str()));
}

std::string printed(GVariant* value) {
  return CharsHandle(g_variant_print(value, /*type_annotate=*/TRUE)).get();
}

/// The arguments after they have been sent and received.
std::string carried(VariantHandle arguments) {
  const auto bytes = encoded(callWith(std::move(arguments)));
  if (!bytes)
    return bytes.error().name;
  const auto message = decodedMessage(*bytes);
  return message ? printed(message->arguments.get()) : "nothing";
}

/// A tuple of one value in this many containers, "a" or "v" each.
VariantHandle nested(char container, int depth) {
  GVariant* value = g_variant_new_byte(1);
  for (; depth > 0; --depth)
    value = container == 'a' ? g_variant_new_array(nullptr, &value, 1) : g_variant_new_variant(value);
  return owned(g_variant_new_tuple(&value, 1));
}

TEST(BusMessage, CarriesValuesOfEveryType) {
  for (const std::string& text :
       {"()"s, "(true, false)"s, "(byte 0xff,)"s, "(int16 -2, uint16 65535)"s, "(-3, uint32 4294967295)"s,
        "(int64 -9223372036854775808, uint64 18446744073709551615)"s, "(1.5, -0.0)"s,
        "('Größe \\U0001f642', '', '\\ufdd0')"s, "(objectpath '/', objectpath '/a/_1')"s,
        "(signature '', signature 'a{s(iv)}')"s, "(<'text'>, <<byte 1>>)"s, "((1, ('a', <2>)), byte 1)"s,
        "([1, 2, 3], [int64 4], [byte 5, 6, 7], [true, false])"s, "(['a', 'bc'], [['d'], []])"s,
        "({'key': <1>, 'other': <[uint16 2]>}, {byte 1: 'b'})"s, "([(byte 1, 'a'), (byte 2, 'b')],)"s,
        "(byte 1, [int64 2], byte 3, [(int64 4,)], byte 5, {'a': 6.0})"s})
    EXPECT_EQ(carried(parsed(text)), printed(parsed(text).get()));
}

TEST(BusMessage, KeepsTheTypesOfEmptyArrays) {
  for (const char* text : {"@ay []", "@ax []", "@as []", "@a(ix) []", "@a{sv} {}", "@aav []", "@ab []"}) {
    const std::string tuple = "(byte 1, "s + text + ", byte 2)";
    EXPECT_EQ(carried(parsed(tuple)), printed(parsed(tuple).get()));
  }
}

TEST(BusMessage, CarriesNothingToo) {
  EXPECT_EQ(carried(nullptr), "()");
}

TEST(BusMessage, CarriesWhatIsDamagedAsGLibReadsIt) {
  const DesktopSupport::BytesHandle bytes(g_bytes_new("\xff\xfe", 2));
  const VariantHandle damaged = owned(g_variant_new_from_bytes(G_VARIANT_TYPE("(sb)"), bytes.get(), FALSE));
  EXPECT_EQ(carried(owned(g_variant_get_normal_form(damaged.get()))),
            carried(VariantHandle(g_variant_ref(damaged.get()))));
}

TEST(BusMessage, RefusesTypesThatOnlyGLibHas) {
  for (const char* text : {"(@ms 'a',)", "(@m(i) nothing,)", "(<@mi 1>,)", "((),)", "(<()>,)", "([<@a() []>],)"})
    EXPECT_EQ(carried(parsed(text)), BusErrorName::invalidArguments) << text;
  EXPECT_EQ(carried(owned(g_variant_new("({sv})", "key", g_variant_new_byte(1)))), BusErrorName::invalidArguments);
}

TEST(BusMessage, RefusesFileHandles) {
  EXPECT_EQ(carried(parsed("(handle 0,)")), BusErrorName::invalidArguments);
  EXPECT_EQ(carried(parsed("([<handle 0>],)")), BusErrorName::invalidArguments);
}

TEST(BusMessage, RefusesWhatIsNestedTooDeeply) {
  EXPECT_EQ(carried(nested('v', 62)), printed(nested('v', 62).get()));
  EXPECT_EQ(carried(nested('v', 65)), BusErrorName::invalidArguments);
}

TEST(BusMessage, RefusesArraysThatAreTooLong) {
  constexpr std::size_t most = DesktopSupport::longestBusArray;
  const auto bytes = [](std::size_t count) {
    const std::string text(count, 'x');
    return owned(g_variant_new("(@ay)", g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, text.data(), count, 1)));
  };
  EXPECT_TRUE(encoded(callWith(bytes(most))));
  EXPECT_FALSE(encoded(callWith(bytes(most + 1))));
}

TEST(BusMessage, RefusesNamesThatDBusDoesNotAllow) {
  for (const auto part : {&BusMessage::destination, &BusMessage::path, &BusMessage::interface, &BusMessage::member}) {
    BusMessage message = callWith(nullptr);
    message.*part = "no-such name";
    const auto bytes = encoded(message);
    ASSERT_FALSE(bytes);
    EXPECT_EQ(bytes.error().name, BusErrorName::invalidArguments);
  }
}

TEST(BusMessage, RefusesACallOfNothing) {
  for (const auto part : {&BusMessage::destination, &BusMessage::path, &BusMessage::member}) {
    BusMessage message = callWith(nullptr);
    (message.*part).clear();
    EXPECT_FALSE(encoded(message));
  }
}

TEST(BusMessage, KeepsItsHeader) {
  BusMessage sent = callWith(parsed("('a',)"));
  sent.wantsAnswer = false;
  sent.mayActivate = true;
  const auto call = decodedMessage(encoded(sent).value());
  ASSERT_TRUE(call);
  EXPECT_EQ(call->type, BusMessage::Type::call);
  EXPECT_FALSE(call->wantsAnswer);
  EXPECT_TRUE(call->mayActivate);
  EXPECT_EQ(call->serial, 7U);
  EXPECT_EQ(call->destination, "com.example.Some-App");
  EXPECT_EQ(call->path, "/com/example");
  EXPECT_EQ(call->interface, "com.example.Interface");
  EXPECT_EQ(call->member, "Method");

  const auto error = decodedMessage(encoded({.type = BusMessage::Type::error,
                                             .serial = 8,
                                             .answeredSerial = 7,
                                             .destination = ":1.2",
                                             .errorName = "com.example.Error",
                                             .arguments = parsed("('Not\\ntoday.', 1)")})
                                        .value());
  ASSERT_TRUE(error);
  EXPECT_EQ(error->answeredSerial, 7U);
  EXPECT_EQ(DesktopSupport::errorIn(*error).name, "com.example.Error");
  EXPECT_EQ(DesktopSupport::errorIn(*error).message, "Not today.");
}

TEST(BusMessage, NamesAnErrorWithoutAText) {
  for (const char* arguments : {"()", "(1,)"})
    EXPECT_EQ(DesktopSupport::errorIn({.errorName = "a.b", .arguments = parsed(arguments)}).message, "a.b");
}

TEST(BusMessage, MayComeInTheOtherByteOrder) {
  const std::string bytes =
      // The head: a call with 25 bytes of arguments, serial 7 and 42 bytes of fields.
      "B\1\0\1\0\0\0\x19\0\0\0\7\0\0\0\x2a"s
      // The path, the member and the signature.
      "\1\1o\0\0\0\0\2/a\0\0\0\0\0\0\3\1s\0\0\0\0\1m\0\0\0\0\0\0\0\10\1g\0\4qauy\0\0\0\0\0\0\0"s
      // The arguments.
      "\1\2\0\0\0\0\0\x10\0\0\0\1\0\0\0\2\0\0\0\3\xff\xff\xff\xff\5"s;
  const auto message = decodedMessage(bytes);
  ASSERT_TRUE(message);
  EXPECT_EQ(message->path, "/a");
  EXPECT_EQ(message->serial, 7U);
  EXPECT_EQ(printed(message->arguments.get()), "(uint16 258, [uint32 1, 2, 3, 4294967295], byte 0x05)");
}

TEST(BusMessage, TellsItsSizeAtItsStart) {
  const std::string bytes = encoded(callWith(parsed("('a', 1)"))).value();
  EXPECT_EQ(DesktopSupport::busMessageSize(bytes.substr(0, DesktopSupport::busMessageStart)), bytes.size());
  EXPECT_EQ(DesktopSupport::busMessageSize(bytes.substr(0, DesktopSupport::busMessageStart - 1)), std::nullopt);
  EXPECT_EQ(DesktopSupport::busMessageSize("HTTP/1.1 200 OK\r\n"), std::nullopt);
  EXPECT_EQ(DesktopSupport::busMessageSize("l\1\0\1\xff\xff\xff\xff\1\0\0\0\0\0\0\0"s), std::nullopt);
}

TEST(BusMessage, IsNoneIfItIsCutOff) {
  const std::string bytes = encoded(callWith(parsed("('a', [1], {'b': <true>})"))).value();
  for (std::size_t size = 0; size < bytes.size(); ++size)
    EXPECT_FALSE(decodedMessage(bytes.substr(0, size))) << size;
}

TEST(BusMessage, IsReadOrRefusedWhicheverByteIsWrong) {
  const std::string bytes =
      encoded(callWith(parsed("('a', [1], {'b': <true>}, [objectpath '/a'], signature 's')"))).value();
  int refused = 0;
  for (std::size_t index = 0; index < bytes.size(); ++index)
    for (const char wrong : {'\0', '\1', '\x7f', '\xff', 'a', '('}) {
      std::string changed = bytes;
      changed[index] = wrong;
      const auto message = decodedMessage(changed);
      refused += message ? 0 : 1;
      if (message)
        EXPECT_TRUE(g_variant_is_normal_form(message->arguments.get()));
    }
  EXPECT_GT(refused, 100);
}

TEST(BusMessage, RefusesTextsThatAreNotWhatTheirTypesSay) {
  const auto withArgument = [](const char* type, const std::string& text) {
    std::string bytes = encoded(callWith(owned(g_variant_new("(s)", "/good")))).value();
    bytes.replace(bytes.rfind("/good"), 5, text);
    const auto signature = bytes.find("\1s\0"s, bytes.find("g\0\1s"s) + 2);
    bytes[signature + 1] = *type;
    return decodedMessage(bytes).has_value();
  };
  EXPECT_TRUE(withArgument("s", "/good"));
  EXPECT_TRUE(withArgument("o", "/good"));
  EXPECT_FALSE(withArgument("s", "a\xff"s + "bcd"));
  EXPECT_FALSE(withArgument("s", "a\0bcd"s));
  EXPECT_FALSE(withArgument("o", "good/"));
  EXPECT_FALSE(withArgument("b", "/good"));
}

}  // namespace
