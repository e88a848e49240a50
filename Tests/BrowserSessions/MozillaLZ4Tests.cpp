#include <gtest/gtest.h>

#include "BrowserSessions/Firefox/MozillaLZ4.h"
#include "Tests/BrowserSessions/MozillaLZ4File.h"

namespace {

using BrowserSessions::mozillaLZ4Contents;
using BrowserSessions::Testing::mozillaLZ4File;
using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr std::size_t sizeAt = 8;

TEST(MozillaLZ4, YieldsWhatWasCompressed) {
  std::string mixed;
  for (int number = 0; number < 5000; ++number)
    mixed += std::to_string(number) + "\0\xff tab"s;
  for (const std::string& contents : {std::string("x"), std::string("{}"), std::string(1 << 20, 'a'), mixed})
    EXPECT_EQ(mozillaLZ4Contents(mozillaLZ4File(contents)), contents);
}

TEST(MozillaLZ4, IsAsWrittenByHand) {
  EXPECT_EQ(mozillaLZ4Contents("mozLz40\0\x05\0\0\0\x50hello"sv), "hello");
  EXPECT_EQ(mozillaLZ4Contents("mozLz40\0\x0f\0\0\0\x15-\x01\0\x50lasts"sv), "----------lasts")
      << "nine more of the byte before";
}

TEST(MozillaLZ4, IsEmptyWhereTheSizeIsNought) {
  EXPECT_EQ(mozillaLZ4Contents(mozillaLZ4File(0, "")), "");
}

TEST(MozillaLZ4, SaysThatItNeedsTheLibrary) {
  static const std::expected<BrowserSessions::LZ4Library, std::string> missing = std::unexpected("There is no LZ4.");
  const auto contents = mozillaLZ4Contents(mozillaLZ4File("{}"), []() -> const auto& { return missing; });
  EXPECT_EQ(contents.error(), "There is no LZ4.");
}

TEST(MozillaLZ4, RefusesFilesThatBeginOtherwise) {
  for (const std::string_view file :
       {""sv, "moz"sv, "mozLz40\0"sv, "mozLz40\0\1\0\0"sv, "mozLz41\0\x05\0\0\0\x50hello"sv,
        "\x04\x22\x4d\x18\x64\x40\xa7\x05\0\0\0hello"sv, "{\"windows\":[]}"sv})
    EXPECT_FALSE(mozillaLZ4Contents(file)) << file;
}

TEST(MozillaLZ4, RefusesAFileThatWasCutOffAnywhere) {
  const std::string file = mozillaLZ4File("{\"windows\":[{\"tabs\":[]},{\"tabs\":[]},{\"tabs\":[]}]}");
  for (std::size_t length = 0; length < file.size(); ++length)
    EXPECT_FALSE(mozillaLZ4Contents(file.substr(0, length))) << length;
}

TEST(MozillaLZ4, RefusesSizesThatAreNotThoseOfTheContents) {
  const std::string block = "\x50hello";
  for (const std::size_t size : {1U, 4U, 6U, 200U, 0x10000000U, 0x7fffffffU, 0xffffffffU})
    EXPECT_FALSE(mozillaLZ4Contents(mozillaLZ4File(size, block))) << size;
  EXPECT_FALSE(mozillaLZ4Contents(mozillaLZ4File(5, "")));
}

TEST(MozillaLZ4, MakesNoRoomForMoreThanABlockCanHold) {
  const std::string block = "\x50hello";
  EXPECT_EQ(mozillaLZ4Contents(mozillaLZ4File(255 * 7 - 1, block)).error(), "Its compressed contents are damaged.");
  EXPECT_EQ(mozillaLZ4Contents(mozillaLZ4File(255 * 7, block)).error(),
            "It cannot hold the 1785 bytes that it claims.");
}

TEST(MozillaLZ4, MakesNoRoomForMoreThan128MiB) {
  const std::size_t limit = 128 << 20;
  const std::string block(limit / 255 + 1, '\0');
  EXPECT_EQ(mozillaLZ4Contents(mozillaLZ4File(limit, block)).error(), "Its compressed contents are damaged.");
  EXPECT_EQ(mozillaLZ4Contents(mozillaLZ4File(limit + 1, block)).error(),
            "It cannot hold the 134217729 bytes that it claims.");
}

TEST(MozillaLZ4, RefusesReferencesToWhatIsNotThere) {
  EXPECT_FALSE(mozillaLZ4Contents(mozillaLZ4File(15, "\x15-\x02\0\x50lasts"sv))) << "before the beginning";
  EXPECT_FALSE(mozillaLZ4Contents(mozillaLZ4File(15, "\x15-\xff\xff\x50lasts"sv))) << "long before the beginning";
}

TEST(MozillaLZ4, HasTheSizeItClaimsOrFailsWhicheverBitIsWrong) {
  const std::string file = mozillaLZ4File(std::string(300, 'a') + std::string(300, 'b') + "the end of the contents");
  for (std::size_t bit = 0; bit < file.size() * 8; ++bit) {
    std::string flipped = file;
    flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ (1 << bit % 8));
    const auto contents = mozillaLZ4Contents(flipped);
    if (contents)
      EXPECT_EQ(contents->size(),
                static_cast<unsigned char>(flipped[sizeAt]) + 256U * static_cast<unsigned char>(flipped[sizeAt + 1]));
    else
      EXPECT_FALSE(contents.error().empty());
  }
}

}  // namespace
