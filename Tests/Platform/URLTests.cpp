#include <filesystem>
#include <string>

#include <gmock/gmock.h>

#include "Platform/Text/URL.h"
#include "Tests/Support/TemporaryFolder.h"

using Platform::URL;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::string> components(std::string_view text) {
  return URL::parse(std::string(text))->pathComponents();
}

}  // namespace

TEST(URL, KeepsItsTextAsWritten) {
  for (const std::string text : {"HTTP://Example.ORG:80/a/../b/%7euser?q=1#f", "deskloomplugin://RUN/x", "mailto:a@b.c",
                                 "file:///tmp/a%20b/", "about:blank", "relative/path", "//host/only"})
    EXPECT_EQ(URL::parse(text)->absoluteString(), text);
}

TEST(URL, ReportsItsSchemeAsWritten) {
  EXPECT_EQ(URL::parse("Chrome://settings")->scheme(), "Chrome");
  EXPECT_EQ(URL::parse("about:preferences")->scheme(), "about");
  EXPECT_EQ(URL::parse("a+b-c.d:x")->scheme(), "a+b-c.d");
}

TEST(URL, HasNoSchemeInARelativeReference) {
  EXPECT_EQ(URL::parse("a/b")->scheme(), std::nullopt);
  EXPECT_EQ(URL::parse("//host/a")->scheme(), std::nullopt);
  EXPECT_EQ(URL::parse("?q")->scheme(), std::nullopt);
}

TEST(URL, DecodesItsHostAndKeepsTheHostsCase) {
  EXPECT_EQ(URL::parse("deskloomplugin://runCommand/x")->host(), "runCommand");
  EXPECT_EQ(URL::parse("x://a%20b%2F/")->host(), "a b/");
  EXPECT_EQ(URL::parse("http://user:pw@example.org:8080/")->host(), "example.org");
  EXPECT_EQ(URL::parse("http://[2001:db8::1]:80/")->host(), "2001:db8::1");
  EXPECT_EQ(URL::parse("http://192.0.2.1/")->host(), "192.0.2.1");
}

TEST(URL, HasNoHostIfThereIsNoneOrAnEmptyOne) {
  EXPECT_EQ(URL::parse("deskloomplugin:run")->host(), std::nullopt);
  EXPECT_EQ(URL::parse("file:///tmp")->host(), std::nullopt);
  EXPECT_EQ(URL::parse("x://")->host(), std::nullopt);
  EXPECT_EQ(URL::parse("x://:80/")->host(), std::nullopt);
}

TEST(URL, ListsTheLeadingSlashAsAComponentOfItsOwn) {
  EXPECT_THAT(components("x://h/ABC"), ElementsAre("/", "ABC"));
  EXPECT_THAT(components("x://h/a/b"), ElementsAre("/", "a", "b"));
  EXPECT_THAT(components("x://h/"), ElementsAre("/"));
  EXPECT_THAT(components("x://h"), IsEmpty());
  EXPECT_THAT(components("a/b"), ElementsAre("a", "b"));
}

TEST(URL, CountsNoComponentForATrailingOrDoubledSlash) {
  EXPECT_THAT(components("x://h/ABC/"), ElementsAre("/", "ABC"));
  EXPECT_THAT(components("x://h//a//b//"), ElementsAre("/", "a", "b"));
}

TEST(URL, DecodesItsPathComponentsOneByOne) {
  EXPECT_THAT(components("x://h/a%2Fb/%C3%A9"), ElementsAre("/", "a/b", "é"));
}

TEST(URL, EndsItsPathAtTheQueryOrTheFragment) {
  EXPECT_THAT(components("x://h/a?b/c"), ElementsAre("/", "a"));
  EXPECT_THAT(components("x://h/a#b/c"), ElementsAre("/", "a"));
  EXPECT_THAT(components("x://h?a/b"), IsEmpty());
  EXPECT_THAT(components("x:?a"), IsEmpty());
}

TEST(URL, RefusesWhatIsNotWellFormed) {
  for (const std::string_view text : {"",
                                      " ",
                                      "http://a b/",
                                      "http://h/a b",
                                      "http://h/a|b",
                                      "http://h/é",
                                      "http://h/%",
                                      "http://h/%4",
                                      "http://h/%zz",
                                      "http://h/{}",
                                      "http://h/\"",
                                      "http://h/\\",
                                      "http://h/^",
                                      "http://h/`",
                                      "http://h/<>",
                                      "http://h/a\nb",
                                      "http://h/[",
                                      "http://[::1",
                                      "http://h:port/",
                                      "1a:b",
                                      ":a",
                                      "http://h/#a#b",
                                      "\xFF"})
    EXPECT_FALSE(URL::parse(std::string(text))) << text;
  EXPECT_FALSE(URL::parse(std::string("http://h/a\0b", 12)));
}

// What follows an authority is read in another way than what follows a scheme.
TEST(URL, AllowsTheSameCharactersWithAnAuthorityAsWithout) {
  for (int byte = 0; byte <= 0xFF; ++byte)
    for (const std::string_view before : {"/", "/a", "/?", "?", "?a", "#", "/#a", "?#", "/%", "/%4", "?%", "#%", "#%f"})
      for (const std::string_view after : {"", "0", "#", "0#", "/?@:"}) {
        const std::string rest = std::string(before) + static_cast<char>(byte) + std::string(after);
        EXPECT_EQ(URL::parse("x://h" + rest).has_value(), URL::parse("x:" + rest).has_value()) << rest;
      }
}

TEST(URL, TellsAnAuthorityFromAPath) {
  EXPECT_THAT(components("x://h"), IsEmpty());
  EXPECT_THAT(components("//h/a"), ElementsAre("/", "a"));
  EXPECT_EQ(URL::parse("//h/a")->host(), "h");
  EXPECT_THAT(components("a//b:c"), ElementsAre("a", "b:c"));
  EXPECT_THAT(components("a/b://c/d"), ElementsAre("a", "b:", "c", "d"));
  EXPECT_FALSE(URL::parse("x:a//b|"));
}

TEST(URL, TakesAMegabyte) {
  const std::string text = "x://h/" + std::string(1 << 20, 'a');
  EXPECT_EQ(URL::parse(text)->pathComponents()[1].size(), 1U << 20);
}

TEST(FileURL, EncodesWhatAPathMayNotHold) {
  EXPECT_EQ(URL::fileURL("/no such/a b?c#d%[é]\"|").absoluteString(),
            "file:///no%20such/a%20b%3Fc%23d%25%5B%C3%A9%5D%22%7C");
  EXPECT_EQ(URL::fileURL("/no-such/-._~!$&'()*+,;=:@/x").absoluteString(), "file:///no-such/-._~!$&'()*+,;=:@/x");
}

TEST(FileURL, EncodesBytesThatAreNotUTF8) {
  EXPECT_EQ(URL::fileURL("/no-such/\xFF\n").absoluteString(), "file:///no-such/%FF%0A");
}

TEST(FileURL, EndsWithASlashIfThePathIsADirectory) {
  const TestSupport::TemporaryFolder directory;
  directory.write("file", "x");
  std::filesystem::create_directory_symlink(directory.path(), directory.path() / "link");

  const std::string base = "file://" + directory.path().string();
  EXPECT_EQ(URL::fileURL(directory.path()).absoluteString(), base + "/");
  EXPECT_EQ(URL::fileURL(directory.path().string() + "/").absoluteString(), base + "/");
  EXPECT_EQ(URL::fileURL(directory.path() / "link").absoluteString(), base + "/link/");
  EXPECT_EQ(URL::fileURL(directory.path() / "file").absoluteString(), base + "/file");
  EXPECT_EQ(URL::fileURL(directory.path() / "missing").absoluteString(), base + "/missing");
  EXPECT_EQ(URL::fileURL("/").absoluteString(), "file:///");
}

TEST(FileURL, TakesARelativePathFromTheWorkingDirectory) {
  EXPECT_EQ(URL::fileURL("no-such-file").absoluteString(),
            URL::fileURL(std::filesystem::current_path() / "no-such-file").absoluteString());
}

TEST(FileURL, IsAWellFormedURLOfThatPath) {
  const URL url = URL::fileURL("/no such/a");
  const auto parsed = URL::parse(url.absoluteString());
  ASSERT_TRUE(parsed);
  EXPECT_EQ(url.scheme(), "file");
  EXPECT_EQ(url.host(), std::nullopt);
  EXPECT_THAT(url.pathComponents(), ElementsAre("/", "no such", "a"));
  EXPECT_EQ(parsed->pathComponents(), url.pathComponents());
}
