#include <string>

#include <gtest/gtest.h>

#include "HostStandIn/HostURL.h"
#include "Platform/Text/PercentEncoding.h"

namespace {

using HostStandIn::isHostURL;
using HostStandIn::resourceTable;

TEST(HostURL, HasTheHostsSchemeInAnyCase) {
  EXPECT_TRUE(isHostURL("deskloom://gleanery/%5B%5D"));
  EXPECT_TRUE(isHostURL("DeskLoom://gleanery"));
  EXPECT_FALSE(isHostURL("deskloomplugin://run"));
  EXPECT_FALSE(isHostURL("http://deskloom:80/"));
  EXPECT_FALSE(isHostURL("deskloo"));
  EXPECT_FALSE(isHostURL(""));
}

TEST(HostURL, IsOneLine) {
  EXPECT_FALSE(isHostURL("deskloom://a\nb"));
  EXPECT_FALSE(isHostURL("deskloom://a\rb"));
  EXPECT_FALSE(isHostURL("deskloom://a\n"));
  EXPECT_FALSE(
      isHostURL("deskloom://a\xE2\x80\xA8"
                "b"));
  EXPECT_FALSE(isHostURL("deskloom://a\x1B[2J"));
}

TEST(HostURL, ChangesNoDirectionOfWriting) {
  EXPECT_FALSE(isHostURL("deskloom://a\u202Eb"));
  EXPECT_FALSE(isHostURL("deskloom://a\u2066b"));
  EXPECT_TRUE(isHostURL("deskloom://größe"));
}

TEST(HostURL, NeedNotBeWellFormedOtherwise) {
  EXPECT_TRUE(isHostURL("deskloom://a b|%5"));
}

std::string urlWith(const std::string& json) {
  return "deskloom://gleanery/" + Platform::percentEncodedPath(json);
}

TEST(ResourceTable, HasALineForEachResourceInTheirOrder) {
  EXPECT_EQ(resourceTable(urlWith(R"([{"type":"website","name":"Zürich","url":"http:\/\/a.example\/"},)"
                                  R"({"type":"application","name":"A","url":"file:\/\/\/usr\/bin\/a%20b"}])")),
            "website      Zürich  http://a.example/\n"
            "application  A       file:///usr/bin/a%20b");
}

TEST(ResourceTable, SaysThatThereAreNone) {
  EXPECT_EQ(resourceTable("deskloom://gleanery/%5B%5D"), "(no resources)");
}

TEST(ResourceTable, KeepsAnEmptyNameInItsColumn) {
  EXPECT_EQ(resourceTable(urlWith(R"([{"type":"url","name":"","url":"a:b"},{"type":"file","name":"N","url":"c:d"}])")),
            "url             a:b\n"
            "file         N  c:d");
}

TEST(ResourceTable, KeepsANameOnItsLine) {
  const auto table = resourceTable(urlWith(R"([{"type":"url","name":"a\nb\u001b[2J","url":"a:b"}])"));
  EXPECT_EQ(table, "url          a b[2J  a:b");
}

TEST(ResourceTable, KeepsANameInItsOrder) {
  const auto table = resourceTable(urlWith("[{\"type\":\"url\",\"name\":\"a\u202Eb\",\"url\":\"a:b\"}]"));
  EXPECT_EQ(table, "url          a\\u{202E}b  a:b");
}

TEST(ResourceTable, DoesNotWidenForALongName) {
  const std::string name(60, 'n');
  EXPECT_EQ(resourceTable(urlWith(R"([{"type":"url","name":")" + name +
                                  R"(","url":"a:b"},)"
                                  R"({"type":"url","name":"s","url":"c:d"}])")),
            "url          " + name + "  a:b\n" + "url          s" + std::string(39 + 2, ' ') + "c:d");
}

TEST(ResourceTable, IsOnlyForURLsThatAddResources) {
  for (const std::string url : {"deskloom://gleanery", "deskloom://other/%5B%5D", "deskloom:", ""})
    EXPECT_EQ(resourceTable(url).error(), "not a URL that adds resources") << url;
}

TEST(ResourceTable, NeedsAListOfResources) {
  for (const std::string json : {"", "[", "{}", "[1]", "null", R"([{"type":"link","name":"N","url":"a:b"}])",
                                 R"([{"type":"url","name":"N","url":"a b"}])"})
    EXPECT_EQ(resourceTable(urlWith(json)).error(), "the payload is not a list of resources") << json;
  EXPECT_FALSE(resourceTable("deskloom://gleanery/%5B%5"));
  EXPECT_FALSE(resourceTable("deskloom://gleanery/%FF"));
}

}  // namespace
