#include <array>
#include <chrono>
#include <cstdint>
#include <forward_list>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "DeskloomSDK/JSON/JSONText.h"
#include "DeskloomSDK/JSON/StrictDecoding.h"

using nlohmann::json;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

enum class Level : std::uint8_t { low, high };
enum class Color { none, red };
NLOHMANN_JSON_SERIALIZE_ENUM(Color, {{Color::none, nullptr}, {Color::red, "red"}})

struct Plain {
  int number = 1;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Plain, number)

struct Defaulted {
  int number = 1;
  std::uint8_t small = 2;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Defaulted, number, small)

struct Intrusive {
  int number = 1;
  NLOHMANN_DEFINE_TYPE_INTRUSIVE(Intrusive, number)
};

struct IntrusiveDefaulted {
  int number = 1;
  NLOHMANN_DEFINE_TYPE_INTRUSIVE_WITH_DEFAULT(IntrusiveDefaulted, number)
};

struct Everything {
  Plain plain;
  Defaulted defaulted;
  std::vector<std::int8_t> list;
  std::map<std::string, Plain> map;
  std::pair<int, double> pair;
  Level level = Level::low;
  bool flag = false;
  float single = 0.5F;
  json raw;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Everything, plain, defaulted, list, map, pair, level, flag, single, raw)

/// A tree of any depth.
struct Tree {
  std::uint8_t number = 0;
  std::vector<Tree> children;
};
void to_json(json& value, const Tree& tree) {
  value = {{"number", tree.number}, {"children", tree.children}};
}
void from_json(const json& value, Tree& tree) {
  value.at("number").get_to(tree.number);
  value.at("children").get_to(tree.children);
}

/// Is read from a number of seconds or from an object with a number of minutes, and written as such an object.
struct Duration {
  double seconds = 0;
};
void to_json(json& value, const Duration& duration) {
  value = {{"minutes", duration.seconds / 60}};
}
void from_json(const json& value, Duration& duration) {
  duration.seconds = value.is_object() ? value.at("minutes").get<double>() * 60 : value.get<double>();
}

/// Refuses low prices.
struct Price {
  double euros = 1;
};
void to_json(json& value, const Price& price) {
  value = {{"euros", price.euros}};
}
void from_json(const json& value, Price& price) {
  price.euros = value.at("euros").get<double>();
  if (price.euros < 1)
    throw std::invalid_argument("too cheap");
}

/// Fails a test if it is read from a number that cannot be converted to the smallest integers.
struct Narrow {
  std::int8_t number = 1;
  std::uint8_t natural = 1;
};
void to_json(json& value, const Narrow& narrow) {
  value = {{"number", narrow.number}, {"natural", narrow.natural}};
}
void from_json(const json& value, Narrow& narrow) {
  for (const json& number : value)
    EXPECT_TRUE(!number.is_number_float() || (-1 < number.get<double>() && number.get<double>() < 128)) << number;
  value.at("number").get_to(narrow.number);
  value.at("natural").get_to(narrow.natural);
}

template <typename Value>
std::optional<Value> decoded(const std::string& text) {
  try {
    return DeskloomSDK::decodeStrictly<Value>(DeskloomSDK::decodeJSON(text).value());
  } catch (const json::exception&) {
    return std::nullopt;
  }
}

/// The texts that can be read as a value of this type.
template <typename Value>
std::vector<std::string> readable(const std::vector<std::string>& texts) {
  std::vector<std::string> result;
  for (const std::string& text : texts)
    if (decoded<Value>(text))
      result.push_back(text);
  return result;
}

TEST(StrictDecoding, TakesForAnIntegerWhatItHasRoomFor) {
  EXPECT_THAT(readable<int>({"0", "-1", "1.0", "1e3", "-0.0", "2147483647", "-2147483648", "-2147483648.0"}),
              testing::SizeIs(8));
  EXPECT_EQ(decoded<int>("1.0"), 1);
  EXPECT_EQ(decoded<int>("1e3"), 1000);
  EXPECT_EQ(decoded<int>("-2147483648.0"), std::numeric_limits<int>::min());
  EXPECT_EQ(decoded<std::uint8_t>("255.0"), 255);
  EXPECT_EQ(decoded<std::int64_t>("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(decoded<std::uint64_t>("18446744073709551615"), std::numeric_limits<std::uint64_t>::max());
  EXPECT_EQ(decoded<std::uint64_t>("9223372036854775808.0"), 1ULL << 63);
  EXPECT_EQ(decoded<std::int64_t>("9007199254740993"), 9007199254740993) << "no double is that number";
}

TEST(StrictDecoding, RefusesForAnIntegerWhatItHasNoRoomFor) {
  const std::vector<std::string> never = {"true", "false", "null",  "\"1\"",  "[]",   "{}",   "1.75",
                                          "-0.5", "0.1",   "1e300", "-1e300", "1e19", "1e20", "1e-300"};
  EXPECT_THAT(readable<int>(never), IsEmpty());
  EXPECT_THAT(readable<std::int8_t>(never), IsEmpty());
  EXPECT_THAT(readable<std::uint8_t>(never), IsEmpty());
  EXPECT_THAT(readable<std::int64_t>(never), IsEmpty());
  EXPECT_THAT(readable<Level>(never), IsEmpty());
  EXPECT_THAT(readable<int>({"99999999999", "2147483648", "-2147483649", "2147483648.0", "4294967297", "128.5"}),
              IsEmpty());
  EXPECT_THAT(readable<unsigned>({"-1", "-1.0", "-1.5", "4294967296", "4294967296.0"}), IsEmpty());
  EXPECT_THAT(readable<std::int8_t>({"128", "-129", "128.0", "300", "300.5", "127.5"}), IsEmpty());
  EXPECT_THAT(readable<std::uint8_t>({"256", "-1", "257", "300.0", "255.5"}), IsEmpty());
  EXPECT_THAT(readable<std::int64_t>({"18446744073709551615", "9223372036854775808", "9223372036854775808.0", "1.5",
                                      "-9223372036854775809"}),
              IsEmpty());
  EXPECT_THAT(
      readable<std::uint64_t>({"-1", "-9223372036854775808", "18446744073709551616", "0.5", "200.5", "true", "1e300"}),
      IsEmpty());
}

TEST(StrictDecoding, ConvertsNothingWhoseConversionIsUndefined) {
  for (const auto* number : {"1e300", "-1e300", "3e9", "-3e9", "200.5", "-1.5", "128.5", "-129.5", "1e19", "255.5"}) {
    EXPECT_FALSE(decoded<Narrow>(R"({"number":)" + std::string(number) + R"(,"natural":1})")) << number;
    EXPECT_FALSE(decoded<Narrow>(R"({"number":1,"natural":)" + std::string(number) + "}")) << number;
    EXPECT_FALSE(decoded<Narrow>(R"({"number":1e300,"natural":)" + std::string(number) + "}")) << number;
  }
  EXPECT_TRUE(decoded<Narrow>(R"({"number":127.0,"natural":0.0})"));
}

TEST(StrictDecoding, TakesForAFloatingPointNumberTheNearestThatThereIs) {
  EXPECT_EQ(decoded<double>("3"), 3);
  EXPECT_EQ(decoded<double>("1e300"), 1e300);
  EXPECT_EQ(decoded<double>("1234.5"), 1234.5);
  EXPECT_EQ(decoded<double>("-1234.5"), -1234.5);
  EXPECT_EQ(decoded<double>("9007199254740993"), 9007199254740992.0);
  EXPECT_EQ(decoded<double>("18446744073709551615"), 18446744073709551616.0);
  EXPECT_EQ(decoded<float>("0.1"), 0.1F);
  EXPECT_EQ(decoded<float>("1234.1"), 1234.1F);
  EXPECT_EQ(decoded<float>("16777217"), 16777216.0F);
  EXPECT_EQ(decoded<float>("-3"), -3.0F);
  EXPECT_EQ(decoded<long double>("0.1"), 0.1);
}

TEST(StrictDecoding, RefusesOtherValuesForAFloatingPointNumber) {
  EXPECT_THAT(readable<double>({"true", "false", "null", "\"1\"", "[1]"}), IsEmpty());
  EXPECT_THAT(readable<float>({"true", "false", "null", "1e300", "-1e300"}), IsEmpty());
}

TEST(StrictDecoding, RefusesOtherValuesForABoolean) {
  EXPECT_THAT(readable<bool>({"0", "1", "1.0", "\"true\"", "null"}), IsEmpty());
  EXPECT_EQ(decoded<bool>("true"), true);
}

TEST(StrictDecoding, TakesAnEnumerationThatIsAnInteger) {
  EXPECT_EQ(decoded<Level>("1"), Level::high);
  EXPECT_THAT(readable<Level>({"256", "257", "-1", "true", "0.5", "1e10"}), IsEmpty());
}

TEST(StrictDecoding, LeavesAnEnumerationWithNamesToTheLibrary) {
  EXPECT_EQ(decoded<Color>("\"red\""), Color::red);
  EXPECT_EQ(decoded<Color>("\"blue\""), Color::none);
}

template <typename Value>
class StrictDecodingOfStructs : public testing::Test {};
using Structs = testing::Types<Plain, Defaulted, Intrusive, IntrusiveDefaulted>;
TYPED_TEST_SUITE(StrictDecodingOfStructs, Structs);

TYPED_TEST(StrictDecodingOfStructs, RefusesAMistypedNumberWhateverTheMacro) {
  for (const auto* number : {"true", "1.75", "99999999999", "1e300", "-1e300", "1e19", "\"1\"", "null"})
    EXPECT_FALSE(decoded<TypeParam>(R"({"number":)" + std::string(number) + "}")) << number;
  EXPECT_EQ(decoded<TypeParam>(R"({"number":3.0,"other":1.5,"another":true,"more":[1e300]})")->number, 3);
}

TEST(StrictDecoding, GivesAMissingFieldItsDefaultIfTheMacroSaysSo) {
  EXPECT_FALSE(decoded<Plain>("{}"));
  EXPECT_FALSE(decoded<Intrusive>("{}"));
  EXPECT_EQ(decoded<Defaulted>("{}")->small, 2);
  EXPECT_EQ(decoded<IntrusiveDefaulted>("{}")->number, 1);
}

TEST(StrictDecoding, RefusesAMistypedNumberAtAnyDepth) {
  EXPECT_TRUE(decoded<Everything>(R"({"plain":{"number":3},"defaulted":{"small":255},"list":[-128,127,1.0],)"
                                  R"("map":{"a":{"number":1},"b":{"number":2}},"pair":[1,200.5],"level":1,)"
                                  R"("flag":true,"single":0.1,"raw":[200.5,true,{"x":1e300},-3000000000.0]})"));
  for (const auto* text :
       {R"({"plain":{"number":3.5}})", R"({"plain":{"number":1e300}})", R"({"defaulted":{"small":256}})",
        R"({"defaulted":{"small":true}})", R"({"list":[1,128]})", R"({"list":[44,300,44]})", R"({"list":[1,true]})",
        R"({"list":[127,127.5]})", R"({"list":[1e300]})", R"({"map":{"a":{"number":1},"b":{"number":2.5}}})",
        R"({"pair":[1.75,1]})", R"({"pair":[1e300,1]})", R"({"pair":[true,1]})", R"({"pair":[1,true]})",
        R"({"level":256})", R"({"flag":1})", R"({"single":1e300})", R"({"single":true})"})
    EXPECT_FALSE(decoded<Everything>(text)) << text;
}

TEST(StrictDecoding, LeavesRawJSONAsItIs) {
  const std::string text = R"({"raw":[200.5,3000000000.0,1e300,-1.5]})";
  EXPECT_EQ(decoded<Everything>(text)->raw.dump(), "[200.5,3000000000.0,1e+300,-1.5]");
}

TEST(StrictDecoding, RefusesAMistypedNumberInEveryContainer) {
  EXPECT_TRUE((decoded<std::array<std::uint8_t, 2>>("[1,255]")));
  EXPECT_FALSE((decoded<std::array<std::uint8_t, 2>>("[1,256]")));
  EXPECT_FALSE((decoded<std::pair<std::uint8_t, int>>("[257,257]")));
  EXPECT_FALSE((decoded<std::pair<int, double>>("[1.5,1]")));
  EXPECT_FALSE((decoded<std::pair<int, double>>("[200.5,1]")));
  EXPECT_TRUE((decoded<std::pair<int, double>>("[1,200.5]")));
  EXPECT_FALSE((decoded<std::tuple<std::uint8_t, int, int>>("[257,257,1]")));
  EXPECT_FALSE((decoded<std::tuple<int, std::vector<double>>>("[1.75,[1]]")));
  EXPECT_FALSE((decoded<std::tuple<std::vector<int>, std::vector<double>>>("[[1.75],[1]]")));
  EXPECT_FALSE((decoded<std::map<std::string, std::uint8_t>>(R"({"a":1,"b":256})")));
  EXPECT_FALSE((decoded<std::map<int, int>>("[[1,2],[3,4.5]]")));
  EXPECT_FALSE((decoded<std::map<int, int>>("[[1,2],[3.5,4]]")));
  EXPECT_FALSE((decoded<std::unordered_map<std::string, int>>(R"({"a":1e300})")));
  EXPECT_FALSE((decoded<std::forward_list<int>>("[1,true]")));
  EXPECT_FALSE((decoded<std::vector<std::vector<int>>>("[[1],[2,3000000000.0]]")));
  EXPECT_FALSE((decoded<std::set<std::uint8_t>>("[257,1]")));
  EXPECT_FALSE((decoded<std::set<int>>("[1,1.5]")));
  EXPECT_FALSE((decoded<std::set<std::uint8_t>>("[1,1,300.5]")));
}

TEST(StrictDecoding, TakesContainersWithAnOrderOfTheirOwn) {
  EXPECT_THAT(*decoded<std::set<int>>("[300,1,300,44]"), ElementsAre(1, 44, 300));
  EXPECT_THAT(*decoded<std::set<double>>("[200.5,200.25,-1.5]"), ElementsAre(-1.5, 200.25, 200.5));
  EXPECT_THAT(*decoded<std::set<float>>("[0.2,0.1]"), ElementsAre(0.1F, 0.2F));
  std::string text = "[0";
  for (int number = 1; number < 200; ++number)
    text += "," + std::to_string(number * 257);
  EXPECT_EQ(decoded<std::unordered_set<int>>(text + "]")->size(), 200U);
  EXPECT_EQ((decoded<std::unordered_map<int, double>>("[[3,1.5],[1,200.5],[2,1e300]]")->size()), 3U);
  EXPECT_EQ((decoded<std::map<double, int>>("[[300.5,1],[200.5,2]]")->size()), 2U);
}

TEST(StrictDecoding, TakesMoreElementsThanThereIsRoomForAsTheLibraryDoes) {
  EXPECT_EQ((decoded<std::pair<int, int>>("[1,2,\"more\"]")), (std::pair{1, 2}));
}

TEST(StrictDecoding, TakesAsLongAsTheTextIs) {
  std::string list = "[0";
  for (int number = 1; number < 100'000; ++number)
    list += "," + std::to_string(number);
  EXPECT_EQ(decoded<std::vector<int>>(list + "]")->size(), 100'000U);
  EXPECT_FALSE(decoded<std::vector<int>>(list + ",0.5]"));

  const auto tree = [](const std::string& number) {
    std::string text = R"({"number":)" + number + R"(,"children":[]})";
    for (int level = 0; level < 200; ++level)
      text = R"({"number":1,"children":[)" + text + "]}";
    return text;
  };
  EXPECT_TRUE(decoded<Tree>(tree("255")));
  EXPECT_FALSE(decoded<Tree>(tree("256")));
}

TEST(StrictDecoding, LetsAConversionReadOneFormAndWriteAnother) {
  EXPECT_EQ(decoded<Duration>("90")->seconds, 90);
  EXPECT_EQ(decoded<Duration>("200.5")->seconds, 200.5);
  EXPECT_EQ(decoded<Duration>(R"({"minutes":1.5})")->seconds, 90);
  EXPECT_EQ(decoded<std::vector<Duration>>(R"([90,{"minutes":1}])")->size(), 2U);
}

TEST(StrictDecoding, LetsAConversionRefuseNumbers) {
  EXPECT_EQ(decoded<Price>(R"({"euros":199.99})")->euros, 199.99);
  EXPECT_THROW(decoded<Price>(R"({"euros":0.5})"), std::invalid_argument);
}

}  // namespace
