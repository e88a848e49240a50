#include <string>

#include <gmock/gmock.h>

#include "Gleanery/Providers/ResourceFilter.h"

using DeskloomSDK::Resource;
using DeskloomSDK::ResourceType;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

Resource at(std::string_view url) {
  return {ResourceType::website, "name", Platform::URL::parse(std::string(url)).value()};
}

TEST(ResourceFilter, RefusesTheBrowsersOwnPages) {
  for (const auto* url : {"favourites://", "favorites://x", "history://all", "chrome://settings/", "chrome:x"})
    EXPECT_FALSE(Gleanery::isAllowed(at(url))) << url;
}

TEST(ResourceFilter, AllowsAboutPagesAndOrdinaryOnes) {
  for (const auto* url : {"about:preferences", "about:blank", "https://example.org/chrome://", "file:///tmp/",
                          "view-source:x", "chrome-extension://abc/", "javascript:void(0)"})
    EXPECT_TRUE(Gleanery::isAllowed(at(url))) << url;
}

TEST(ResourceFilter, AllowsAURLWithoutAScheme) {
  EXPECT_TRUE(Gleanery::isAllowed(at("chrome/settings")));
}

TEST(ResourceFilter, ComparesCaseSensitively) {
  EXPECT_TRUE(Gleanery::isAllowed(at("Chrome://settings")));
}

TEST(ResourceFilter, KeepsTheOrderOfWhatItAllows) {
  std::vector<std::string> kept;
  for (const Resource& resource :
       Gleanery::allowedResources({at("x:1"), at("chrome:2"), at("x:3"), at("x:1"), at("history:4")}))
    kept.push_back(resource.url().absoluteString());
  EXPECT_THAT(kept, ElementsAre("x:1", "x:3", "x:1"));
}

TEST(ResourceFilter, MakesAnEmptyListOfAnEmptyList) {
  EXPECT_THAT(Gleanery::allowedResources({}), IsEmpty());
}

}  // namespace
