#include <memory>
#include <string>
#include <type_traits>

#include <gmock/gmock.h>

#include "Gleanery/Providers/ChromeResourceProvider.h"
#include "Gleanery/Providers/FinderResourceProvider.h"
#include "Gleanery/Providers/OpenAppsResourceProvider.h"
#include "Gleanery/Providers/SafariResourceProvider.h"
#include "Gleanery/ResourceProviderController.h"
#include "Platform/Fake/FakeServices.h"

using DeskloomSDK::ResourceType;
using Gleanery::ChromeResourceProvider;
using Gleanery::FinderResourceProvider;
using Gleanery::OpenAppsResourceProvider;
using Gleanery::Resource;
using Gleanery::ResourceProviderController;
using Gleanery::SafariResourceProvider;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ResourceProviderTest : public testing::Test {
 protected:
  /// The resources that a provider makes of a reply, as "name → URL".
  std::vector<std::string> fetch(const Gleanery::ResourceProvider& provider, std::string reply) {
    desktop.scripts.answerText(std::move(reply));
    const auto fetched = provider.fetchResources();
    std::vector<std::string> resources;
    for (const Resource& resource : fetched.value())
      resources.push_back(resource.name() + " → " + resource.url().absoluteString());
    return resources;
  }

  Platform::Fake::FakeServices desktop;
};

TEST_F(ResourceProviderTest, PairsTheLinesOfTheReply) {
  EXPECT_THAT(fetch(SafariResourceProvider(), "a\nx:b\nc\nx:d\n"), ElementsAre("a → x:b", "c → x:d"));
  EXPECT_THAT(fetch(SafariResourceProvider(), "a\nx:b\nc\nx:d"), ElementsAre("a → x:b", "c → x:d"));
}

TEST_F(ResourceProviderTest, IgnoresALastLineWithoutAPartner) {
  EXPECT_THAT(fetch(SafariResourceProvider(), "a\nx:b\nc\n"), ElementsAre("a → x:b"));
  EXPECT_THAT(fetch(SafariResourceProvider(), "a"), IsEmpty());
}

TEST_F(ResourceProviderTest, MakesNothingOfAnEmptyReply) {
  EXPECT_THAT(fetch(SafariResourceProvider(), ""), IsEmpty());
}

TEST_F(ResourceProviderTest, PairsAnEmptyNameLikeAnyOther) {
  EXPECT_THAT(fetch(ChromeResourceProvider(), "\nx:a\n\nx:b\n"), ElementsAre(" → x:a", " → x:b"));
}

TEST_F(ResourceProviderTest, YieldsAnEmptyListIfTheScriptFails) {
  desktop.scripts.fail(-600, "Application isn't running.");
  const auto resources = OpenAppsResourceProvider().fetchResources();
  ASSERT_TRUE(resources);
  EXPECT_THAT(*resources, IsEmpty());
}

TEST_F(ResourceProviderTest, RunsItsOwnScriptAfreshEachTime) {
  const FinderResourceProvider provider;
  fetch(provider, "");
  fetch(provider, "");
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(provider.script(), provider.script()));
}

TEST_F(ResourceProviderTest, StopsAtTheFirstItemThatFails) {
  class FailingProvider : public Gleanery::BasicResourceProvider {
   public:
    FailingProvider() : BasicResourceProvider("failing", "script") {}
    [[nodiscard]] std::expected<Resource, Platform::Error> makeResource(std::string_view name,
                                                                        std::string_view location) const override {
      if (name == "bad")
        return std::unexpected(Platform::Error("d", 5, "no", ""));
      return Resource(ResourceType::url, std::string(name), Platform::URL::fileURL(location));
    }
  };
  desktop.scripts.answerText("good\n/a\nbad\n/b\ngood\n/c\n");
  const auto resources = FailingProvider().fetchResources();
  ASSERT_FALSE(resources);
  EXPECT_EQ(resources.error().code(), 5);
}

TEST_F(ResourceProviderTest, MakesFileURLsOfThePathsOfApplicationsAndFolders) {
  const auto application = OpenAppsResourceProvider().makeResource("Terminal", "/no such/xterm.desktop").value();
  EXPECT_EQ(application.type(), ResourceType::application);
  EXPECT_EQ(application.name(), "Terminal");
  EXPECT_EQ(application.url().absoluteString(), "file:///no%20such/xterm.desktop");

  const auto folder = FinderResourceProvider().makeResource("Root", "/").value();
  EXPECT_EQ(folder.type(), ResourceType::folder);
  EXPECT_EQ(folder.url().absoluteString(), "file:///");
}

TEST_F(ResourceProviderTest, TakesTheAddressesOfTabsAsTheyAre) {
  for (const std::unique_ptr<Gleanery::BasicResourceProvider>& provider :
       {std::unique_ptr<Gleanery::BasicResourceProvider>(new SafariResourceProvider),
        std::unique_ptr<Gleanery::BasicResourceProvider>(new ChromeResourceProvider)}) {
    const auto tab = provider->makeResource("News", "HTTP://example.org/%7e?q").value();
    EXPECT_EQ(tab.type(), ResourceType::website);
    EXPECT_EQ(tab.name(), "News");
    EXPECT_EQ(tab.url().absoluteString(), "HTTP://example.org/%7e?q");
  }
}

TEST(ResourceProviderDeathTest, StopsTheProcessIfATabsAddressIsNotAURL) {
  EXPECT_DEATH(static_cast<void>(SafariResourceProvider().makeResource("a", "not a URL")), "Fatal error: ");
  EXPECT_DEATH(static_cast<void>(ChromeResourceProvider().makeResource("a", "")), "Fatal error: ");
}

TEST(ResourceProviders, CannotBeCopied) {
  EXPECT_FALSE(std::is_copy_constructible_v<SafariResourceProvider>);
  EXPECT_FALSE(std::is_copy_constructible_v<OpenAppsResourceProvider>);
  EXPECT_FALSE(std::is_copy_constructible_v<ResourceProviderController>);
  EXPECT_FALSE(std::is_copy_assignable_v<ResourceProviderController>);
}

TEST(ResourceProviderController, HasFourProvidersInItsOrder) {
  const ResourceProviderController controller;
  std::vector<std::string> identifiers;
  for (const auto& provider : controller.providers())
    identifiers.push_back(provider->identifier());
  EXPECT_THAT(identifiers, ElementsAre("safari", "apps", "finder", "chrome"));
}

TEST(ResourceProviderController, FindsAProviderByItsIdentifierToTheLetter) {
  const ResourceProviderController controller;
  EXPECT_EQ(controller.provider("apps"), controller.providers()[1].get());
  for (const auto* unknown : {"Apps", "Safari", "", "apps ", "firefox"})
    EXPECT_EQ(controller.provider(unknown), nullptr) << unknown;
}

TEST(ProviderScripts, AreTheseTexts) {
  EXPECT_EQ(OpenAppsResourceProvider().script(),
            R"(    tell application "System Events"
        set result to ""
)"
            "        \n"
            R"(        repeat with element in (get properties of every process where background only is false)
            set result to ((result & (get name of element) & linefeed as string) & (get POSIX path of file of element) & linefeed as string)
        end repeat
    end tell)");
  EXPECT_EQ(FinderResourceProvider().script(),
            R"(    tell application "Finder"
        set result to ""
)"
            "        \n"
            R"(        repeat with x from 1 to (number of windows)
            set result to ((result & (get name of window x) & linefeed as string) & (get POSIX path of (target of window x as alias)) & linefeed as string)
        end repeat
    end tell)");
  EXPECT_EQ(SafariResourceProvider().script(),
            R"(    set result to ""

    tell application "Safari"
        repeat with x from 1 to (number of windows)
            set subres to result
            repeat with y from 1 to (number of tabs of window x)
                set subres to ((subres & (get name of tab y of window x) & linefeed as string) & (get URL of tab y of window x) & linefeed as string)
            end repeat
)"
            "            \n"
            R"(            set result to subres
        end repeat
    end tell)");
  EXPECT_EQ(ChromeResourceProvider().script(),
            R"(    tell application "Google Chrome"
        set result to ""
)"
            "        \n"
            R"(        repeat with x from 1 to (number of windows)
            repeat with y from 1 to (get number of tabs of window x)
                set result to ((result & (get title of tab y of window x) & linefeed as string) & (get URL of tab y of window x) & linefeed as string)
            end repeat
        end repeat
    end tell
)");
}

}  // namespace
