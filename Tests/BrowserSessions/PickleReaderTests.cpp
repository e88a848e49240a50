#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "BrowserSessions/Chromium/SessionLog.h"
#include "Tests/BrowserSessions/SessionLogWriter.h"

namespace BrowserSessions {
namespace {

using namespace std::string_literals;

TEST(PickleReader, YieldsTheFieldsInTheirOrder) {
  const std::string pickle = PickleWriter().integer(-7).text("abcde").text16(u"xyz").integer(8).bytes();
  auto fields = PickleReader::open(pickle);
  ASSERT_TRUE(fields);
  EXPECT_EQ(fields->integer(), -7);
  EXPECT_EQ(fields->text(), "abcde");
  EXPECT_EQ(fields->text16(), "x\0y\0z\0"s);
  EXPECT_EQ(fields->integer(), 8);
  EXPECT_EQ(fields->integer(), std::nullopt);
}

TEST(PickleReader, YieldsEmptyTexts) {
  const std::string pickle = PickleWriter().text("").text16(u"").integer(1).bytes();
  auto fields = PickleReader::open(pickle);
  ASSERT_TRUE(fields);
  EXPECT_EQ(fields->text(), "");
  EXPECT_EQ(fields->text16(), "");
  EXPECT_EQ(fields->integer(), 1);
}

TEST(PickleReader, SkipsALongerHeader) {
  const std::string pickle = SessionLogWriter::number(4) + "more" + SessionLogWriter::number(5);
  auto fields = PickleReader::open(pickle);
  ASSERT_TRUE(fields);
  EXPECT_EQ(fields->integer(), 5);
}

TEST(PickleReader, NeedsAHeaderThatGoesWithTheLength) {
  EXPECT_FALSE(PickleReader::open(""));
  EXPECT_FALSE(PickleReader::open("\0\0\0"s));
  EXPECT_FALSE(PickleReader::open(SessionLogWriter::number(5) + "four")) << "more than there is";
  EXPECT_FALSE(PickleReader::open(SessionLogWriter::number(8) + "four")) << "more than there is, were it no header";
  EXPECT_FALSE(PickleReader::open(SessionLogWriter::number(-1) + "four"));
  EXPECT_FALSE(PickleReader::open(SessionLogWriter::number(3) + "four")) << "a header of five bytes";
}

TEST(PickleReader, TakesNoTextThatIsLongerThanTheRest) {
  for (const std::int32_t count :
       {5, 1 << 30, std::numeric_limits<std::int32_t>::max(), -1, std::numeric_limits<std::int32_t>::min()}) {
    const std::string pickle = PickleWriter().integer(count).integer(0).bytes();
    EXPECT_EQ(PickleReader::open(pickle)->text(), std::nullopt) << count;
    EXPECT_EQ(PickleReader::open(pickle)->text16(), std::nullopt) << count;
  }
}

}  // namespace
}  // namespace BrowserSessions
