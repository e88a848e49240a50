#include <array>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "BrowserSessions/Firefox/FirefoxSession.h"
#include "Tests/BrowserSessions/BrowserSessionPrinting.h"

namespace BrowserSessions {
namespace {

struct Example {
  std::string_view url;
  std::string_view name;
};

TEST(FirefoxPageNames, AreTheAddressWithoutItsScheme) {
  for (const auto& [url, name] : std::to_array<Example>({
           {"http://127.0.0.1:8000/%20a", "127.0.0.1:8000/%20a"},
           {"https://www.example.com/", "example.com/"},
           {"file:///home/user/notes%20a.txt", "/home/user/notes%20a.txt"},
           {"about:blank", "about:blank"},
           {"data:text/html,http://example.com/", "data:text/html,http://example.com/"},
           {"words", "words"},
           {"", ""},
       }))
    EXPECT_EQ(firefoxPageName(url), name);
}

TEST(FirefoxPageNames, AreThoseOfPagesWhoseTitleIsTheirAddress) {
  const auto named = [](const char* title, const char* url) {
    BrowserSession session = {{{{"First", "first:"}, {title, url}}, 0}};
    addFirefoxNames(session);
    EXPECT_EQ(session[0].tabs[0].title, "First");
    return session[0].tabs[1].title;
  };
  EXPECT_EQ(named("", "http://example.com/a"), "example.com/a");
  EXPECT_EQ(named("http://example.com/a", "http://example.com/a"), "example.com/a");
  EXPECT_EQ(named("http://xn--bcher-kva.example/a", "http://bücher.example/a"), "bücher.example/a");
  EXPECT_EQ(named("http://xn--bcher-kva.example", "http://bücher.example"), "bücher.example");
  EXPECT_EQ(named("about:config", "about:config"), "about:config");
  EXPECT_EQ(named("http://example.com/a", "view-source:http://example.com/a"), "http://example.com/a");
  EXPECT_EQ(named("http://example.com/a", "http://example.com/b"), "http://example.com/a");
  EXPECT_EQ(named("https://example.com/a", "http://example.com/a"), "https://example.com/a");
  EXPECT_EQ(named("a", "a:b"), "a");
}

TEST(FirefoxPageNames, AreCut) {
  const std::string address = "http://example.com/" + std::string(5000, 'x');
  BrowserSession session = {{{{address, address}, {std::string(5000, 'y'), "a:"}}, 0}};
  addFirefoxNames(session);
  EXPECT_EQ(session[0].tabs[0].title, "example.com/" + std::string(987, 'x') + "…");
  EXPECT_EQ(session[0].tabs[1].title, std::string(999, 'y') + "…");
}

}  // namespace
}  // namespace BrowserSessions
