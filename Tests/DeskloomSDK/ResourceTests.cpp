#include <nlohmann/json.hpp>
#include <string>

#include <gmock/gmock.h>

#include "DeskloomSDK/Resources/Resource.h"

using DeskloomSDK::decodeResources;
using DeskloomSDK::DecodingError;
using DeskloomSDK::encodeResources;
using DeskloomSDK::Resource;
using DeskloomSDK::ResourceType;
using Platform::URL;
using Kind = DecodingError::Kind;

namespace {

Resource website(std::string name, std::string_view url) {
  return {ResourceType::website, std::move(name), URL::parse(std::string(url)).value()};
}

DecodingError failure(std::string_view object) {
  const auto resource = Resource::decode(nlohmann::json::parse(object));
  EXPECT_FALSE(resource) << object;
  return resource ? DecodingError{} : resource.error();
}

TEST(Resource, StoresWhatItIsMadeOf) {
  const Resource resource = website("  A name ", "HTTP://Example.org/%7e");
  EXPECT_EQ(resource.type(), ResourceType::website);
  EXPECT_EQ(resource.name(), "  A name ");
  EXPECT_EQ(resource.url().absoluteString(), "HTTP://Example.org/%7e");
}

TEST(ResourceEncoding, WritesCompactTextWithEscapedSlashes) {
  const std::vector<Resource> resources = {
      {ResourceType::application, "Finder", URL::parse("file:///System/Library/CoreServices/Finder.app/").value()},
      {ResourceType::folder, "Projects", URL::parse("file:///Users/Shared/Projects/").value()}};
  EXPECT_EQ(encodeResources(resources),
            R"([{"type":"application","name":"Finder","url":"file:\/\/\/System\/Library\/CoreServices\/Finder.app\/"},)"
            R"({"type":"folder","name":"Projects","url":"file:\/\/\/Users\/Shared\/Projects\/"}])");
}

TEST(ResourceEncoding, WritesAnEmptyListAsTwoCharacters) {
  EXPECT_EQ(encodeResources({}), "[]");
}

TEST(ResourceEncoding, WritesOtherScriptsAsUTF8) {
  EXPECT_EQ(encodeResources({website("Café 日本 😀", "x:y")}),
            R"([{"type":"website","name":"Café 日本 😀","url":"x:y"}])");
}

TEST(ResourceEncoding, WritesASpaceInAFilePathAsAnEscape) {
  const Resource resource(ResourceType::file, "a", URL::fileURL("/no such"));
  EXPECT_EQ(encodeResources({resource}), R"([{"type":"file","name":"a","url":"file:\/\/\/no%20such"}])");
}

TEST(ResourceEncoding, FailsOverANameThatIsNoText) {
  EXPECT_FALSE(encodeResources({website("a\xFF", "x:y")}));
}

TEST(ResourceDecoding, ReadsWhatWasWritten) {
  const std::string name = "quotes \" and \\ and / and\nbreaks\r\t\x01 and é";
  const auto decoded = decodeResources(encodeResources({website(name, "http://h/a"), website("", "x:y")}).value());
  ASSERT_TRUE(decoded);
  ASSERT_EQ(decoded->size(), 2U);
  EXPECT_EQ(decoded->at(0).name(), name);
  EXPECT_EQ(decoded->at(0).url().absoluteString(), "http://h/a");
  EXPECT_EQ(decoded->at(1).name(), "");
  EXPECT_EQ(decodeResources("[]")->size(), 0U);
}

TEST(ResourceDecoding, TakesKeysInAnyOrderAndSlashesInEitherForm) {
  for (const auto* text : {R"({"url":"http:\/\/h\/a","type":"url","name":"n"})",
                           R"({"name":"n","url":"http://h/a","type":"url","id":7})"}) {
    const auto resource = Resource::decode(nlohmann::json::parse(text));
    ASSERT_TRUE(resource) << text;
    EXPECT_EQ(resource->type(), ResourceType::url);
    EXPECT_EQ(resource->url().absoluteString(), "http://h/a");
  }
}

TEST(ResourceDecoding, FailsOverAMissingKey) {
  EXPECT_EQ(failure(R"({"name":"n","url":"x:y"})").kind, Kind::keyNotFound);
  EXPECT_EQ(failure(R"({"type":"url","url":"x:y"})").key, "name");
  EXPECT_EQ(failure(R"({"type":"url","name":"n"})").kind, Kind::keyNotFound);
  EXPECT_EQ(failure(R"({"Type":"url","name":"n","url":"x:y"})").key, "type");
}

TEST(ResourceDecoding, FailsOverAValueOfAnotherType) {
  EXPECT_EQ(failure(R"({"type":1,"name":"n","url":"x:y"})").kind, Kind::typeMismatch);
  EXPECT_EQ(failure(R"({"type":"url","name":null,"url":"x:y"})").kind, Kind::typeMismatch);
  EXPECT_EQ(failure(R"({"type":"url","name":"n","url":["x:y"]})").key, "url");
  EXPECT_EQ(failure(R"(["url","n","x:y"])").kind, Kind::typeMismatch);
}

TEST(ResourceDecoding, FailsOverAScalar) {
  for (const auto* scalar : {"1", "1.5", "true", "null", "\"type\"", "[]"}) {
    EXPECT_EQ(failure(scalar).kind, Kind::typeMismatch) << scalar;
    EXPECT_EQ(failure(scalar).key, "") << scalar;
    const auto list = decodeResources("[" + std::string(scalar) + "]");
    ASSERT_FALSE(list) << scalar;
    EXPECT_EQ(list.error().kind, Kind::typeMismatch) << scalar;
  }
  for (const auto* scalar : {"1", "true", "null", "\"type\""})
    EXPECT_EQ(decodeResources(scalar).error().kind, Kind::typeMismatch) << scalar;
}

TEST(ResourceDecoding, FailsOverAnInvalidTypeOrURL) {
  EXPECT_EQ(failure(R"({"type":"link","name":"n","url":"x:y"})").kind, Kind::dataCorrupted);
  EXPECT_EQ(failure(R"({"type":"url","name":"n","url":""})").kind, Kind::dataCorrupted);
  EXPECT_EQ(failure(R"({"type":"url","name":"n","url":"a b"})").key, "url");
}

TEST(ResourceDecoding, ReportsTheFirstFieldThatFails) {
  EXPECT_EQ(failure(R"({"type":"link"})").key, "type");
  EXPECT_EQ(failure(R"({"type":"url","url":""})").key, "name");
}

TEST(ResourceDecoding, FailsIfOneElementFails) {
  const std::string good = R"({"type":"url","name":"n","url":"x:y"})";
  const auto errorOf = [&](const std::string& bad) {
    const auto list = decodeResources("[" + good + "," + bad + "," + good + "]");
    EXPECT_FALSE(list) << bad;
    return list ? DecodingError{} : list.error();
  };
  EXPECT_EQ(errorOf(R"({"type":"url","name":"n"})").kind, Kind::keyNotFound);
  EXPECT_EQ(errorOf(R"({"type":"url","name":"n"})").key, "url");
  EXPECT_EQ(errorOf(R"({"type":"url","name":7,"url":"x:y"})").kind, Kind::typeMismatch);
  EXPECT_EQ(errorOf(R"({"type":"url","name":7,"url":"x:y"})").key, "name");
  EXPECT_EQ(errorOf(R"({"type":"link","name":"n","url":"x:y"})").kind, Kind::dataCorrupted);
  EXPECT_EQ(errorOf(R"({"type":"link","name":"n","url":"x:y"})").key, "type");
  EXPECT_EQ(decodeResources(R"([{"type":"link"},{}])").error().key, "type") << "the first one's";
}

TEST(ResourceCodingKeys, AreFoundByTheirStringsToTheLetter) {
  using enum Resource::CodingKeys;
  EXPECT_EQ(DeskloomSDK::codingKey("type"), type);
  EXPECT_EQ(DeskloomSDK::codingKey("name"), name);
  EXPECT_EQ(DeskloomSDK::codingKey("url"), url);
  for (const auto* text : {"Type", "URL", "", " name", "names", "0"})
    EXPECT_EQ(DeskloomSDK::codingKey(text), std::nullopt) << text;
  for (const auto key : {type, name, url})
    EXPECT_EQ(DeskloomSDK::codingKey(stringValue(key)), key);
}

TEST(ResourceCodingKeys, HaveNoIntegers) {
  using enum Resource::CodingKeys;
  for (const int integer : {-1, 0, 1, 2, 3})
    EXPECT_EQ(DeskloomSDK::codingKey(integer), std::nullopt) << integer;
  for (const auto key : {type, name, url})
    EXPECT_EQ(intValue(key), std::nullopt);
}

TEST(ResourceCodingKeys, AreInTheOrderInWhichTheyAreWritten) {
  EXPECT_EQ(static_cast<int>(Resource::CodingKeys::type), 0);
  EXPECT_EQ(static_cast<int>(Resource::CodingKeys::name), 1);
  EXPECT_EQ(static_cast<int>(Resource::CodingKeys::url), 2);
}

template <typename JSON>
class ResourceConversions : public testing::Test {};
using JSONTypes = testing::Types<nlohmann::json, nlohmann::ordered_json>;
TYPED_TEST_SUITE(ResourceConversions, JSONTypes);

TYPED_TEST(ResourceConversions, WriteAnObjectAndReadItBack) {
  const TypeParam json = website("a/b", "http://h/");
  EXPECT_EQ(json, TypeParam({{"type", "website"}, {"name", "a/b"}, {"url", "http://h/"}}));
  const auto resource = json.template get<Resource>();
  EXPECT_EQ(resource.type(), ResourceType::website);
  EXPECT_EQ(resource.name(), "a/b");
  EXPECT_EQ(resource.url().absoluteString(), "http://h/");
}

TYPED_TEST(ResourceConversions, WriteAndReadLists) {
  const TypeParam json = std::vector{website("a", "x:1"), website("b", "x:2")};
  EXPECT_EQ(json.size(), 2U);
  const auto resources = json.template get<std::vector<Resource>>();
  ASSERT_EQ(resources.size(), 2U);
  EXPECT_EQ(resources[1].name(), "b");
  EXPECT_TRUE(TypeParam::array().template get<std::vector<Resource>>().empty());
}

TYPED_TEST(ResourceConversions, ThrowWhatTheLibraryThrowsAndChangeNothing) {
  using json = nlohmann::json;
  Resource resource = website("before", "x:y");
  const auto read = [&](const char* text) { TypeParam::parse(text).get_to(resource); };
  EXPECT_THROW(read("{}"), json::out_of_range);
  EXPECT_THROW(read(R"({"type":"url","name":"n"})"), json::out_of_range);
  EXPECT_THROW(read("7"), json::type_error);
  EXPECT_THROW(read(R"({"type":"url","name":7,"url":"x:y"})"), json::type_error);
  EXPECT_THROW(read(R"({"type":"link","name":"n","url":"x:y"})"), json::other_error);
  EXPECT_THROW(read(R"({"type":"url","name":"n","url":"a b"})"), json::other_error);
  EXPECT_EQ(resource.name(), "before");
  EXPECT_THROW(static_cast<void>(TypeParam::parse("[{}]").template get<std::vector<Resource>>()), json::out_of_range);
  read(R"({"type":"url","name":"after","url":"x:y"})");
  EXPECT_EQ(resource.name(), "after");
}

TEST(ResourceConversion, KeepsTheOrderOfItsKeysIfTheObjectDoes) {
  EXPECT_EQ(nlohmann::ordered_json(website("a", "x:y")).dump(), R"({"type":"website","name":"a","url":"x:y"})");
}

TEST(ResourceDecoding, FailsOverATextThatIsNoList) {
  EXPECT_EQ(decodeResources("").error().kind, Kind::dataCorrupted);
  EXPECT_EQ(decodeResources("[{").error().kind, Kind::dataCorrupted);
  EXPECT_EQ(decodeResources("{}").error().kind, Kind::typeMismatch);
}

TEST(ResourceType, GoesToItsRawStringAndBack) {
  const std::vector<std::string> rawStrings = {"file", "folder", "website", "terminal", "application", "url"};
  for (std::size_t order = 0; order < rawStrings.size(); ++order) {
    const auto type = static_cast<ResourceType>(order);
    EXPECT_EQ(DeskloomSDK::rawValue(type), rawStrings[order]);
    EXPECT_EQ(DeskloomSDK::resourceType(rawStrings[order]), type);
  }
}

TEST(ResourceType, IsAbsentForOtherStrings) {
  for (const auto* text : {"Website", "URL", "", " file", "File", "files"})
    EXPECT_EQ(DeskloomSDK::resourceType(text), std::nullopt) << text;
}

TEST(ResourceType, HashesAsItsRawString) {
  EXPECT_EQ(std::hash<ResourceType>()(ResourceType::folder), std::hash<std::string_view>()("folder"));
}

}  // namespace
