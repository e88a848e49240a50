#include <nlohmann/json.hpp>
#include <string>

#include <gmock/gmock.h>

#include "DeskloomSDK/Resource.h"

using DeskloomSDK::decodeResources;
using DeskloomSDK::DecodingError;
using DeskloomSDK::encodeResources;
using DeskloomSDK::Resource;
using DeskloomSDK::ResourceType;
using Platform::URL;
using Kind = DecodingError::Kind;

namespace {

Resource website(std::string name, std::string_view url) {
  return {ResourceType::website, std::move(name), URL::parse(url).value()};
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

TEST(ResourceDecoding, FailsOverATypeOrAURLThatIsNone) {
  EXPECT_EQ(failure(R"({"type":"link","name":"n","url":"x:y"})").kind, Kind::dataCorrupted);
  EXPECT_EQ(failure(R"({"type":"url","name":"n","url":""})").kind, Kind::dataCorrupted);
  EXPECT_EQ(failure(R"({"type":"url","name":"n","url":"a b"})").key, "url");
}

TEST(ResourceDecoding, ReportsTheFirstFieldThatFails) {
  EXPECT_EQ(failure(R"({"type":"link"})").key, "type");
  EXPECT_EQ(failure(R"({"type":"url","url":""})").key, "name");
}

TEST(ResourceDecoding, FailsAsAWholeWhereOneElementFails) {
  EXPECT_FALSE(decodeResources(R"([{"type":"url","name":"n","url":"x:y"},{"type":"url","name":"n"}])"));
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

TEST(ResourceType, IsNoneOfAnyOtherString) {
  for (const auto* text : {"Website", "URL", "", " file", "File", "files"})
    EXPECT_EQ(DeskloomSDK::resourceType(text), std::nullopt) << text;
}

TEST(ResourceType, HashesAsItsRawString) {
  EXPECT_EQ(std::hash<ResourceType>()(ResourceType::folder), std::hash<std::string_view>()("folder"));
}

}  // namespace
