#include <gmock/gmock.h>

#include "BrimlaceTextView/AboutWindowController.h"
#include "Platform/Fake/FakeServices.h"

using BrimlaceTextView::AboutWindowController;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Describes an element in words.
struct Describe {
  std::string operator()(const Platform::Picture& picture) const {
    return "picture " + picture.file.string() + " of " + picture.description;
  }
  std::string operator()(const Platform::Heading& heading) const { return "heading " + heading.text; }
  std::string operator()(const Platform::Text& text) const { return "text " + text.text; }
  std::string operator()(const Platform::Link& link) const {
    return "link " + link.text + " to " + link.url.absoluteString();
  }
  template <typename Control>
  std::string operator()(const Control& control) const {
    return "control " + control.label;
  }
};

class AboutWindowControllerTest : public testing::Test {
 protected:
  /// The elements of a window made with these arguments, in words.
  std::vector<std::string> elements(const std::optional<std::string>& shareMessage = std::nullopt,
                                    const std::optional<std::string>& moreAppsLink = std::nullopt) {
    AboutWindowController::createWithWindow(shareMessage, Platform::URL::parse(moreAppsLink.value_or("")));
    std::vector<std::string> described;
    for (const auto& element : desktop.windows.made.back()->content.elements)
      described.push_back(std::visit(Describe(), element));
    return described;
  }

  Platform::Fake::FakeServices desktop;
};

TEST_F(AboutWindowControllerTest, ShowsWhatTheBundleHas) {
  desktop.bundle.entries = {{"Name", "Plugin"},
                            {"Version", "1.2"},
                            {"License", "MIT"},
                            {"Website", "https://example.com/plugin"},
                            {"Icon", "icon.svg"}};
  EXPECT_THAT(elements(),
              ElementsAre("picture /plugins/com.example.Plugin/icon.svg of Plugin", "heading Plugin",
                          "text Version 1.2", "text License: MIT", "link Website to https://example.com/plugin"));
  EXPECT_EQ(desktop.windows.made.back()->content.title, "About Plugin");
}

TEST_F(AboutWindowControllerTest, LeavesOutWhatTheBundleDoesNotHave) {
  desktop.bundle.entries = {{"Name", "Plugin"}};
  EXPECT_THAT(elements(), ElementsAre("heading Plugin"));
}

TEST_F(AboutWindowControllerTest, LeavesOutAWebsiteThatIsNotAURL) {
  desktop.bundle.entries = {{"Name", "Plugin"}, {"Website", "not a URL"}};
  EXPECT_THAT(elements(), ElementsAre("heading Plugin"));
}

TEST_F(AboutWindowControllerTest, ShowsTheShareMessageAndTheMoreAppsLinkIfTheyAreGiven) {
  desktop.bundle.entries = {{"Name", "Plugin"}};
  EXPECT_THAT(elements("Try “it” & smile?", "https://example.com/apps"),
              ElementsAre("heading Plugin", "link Share to mailto:?body=Try%20%E2%80%9Cit%E2%80%9D%20%26%20smile%3F",
                          "link More apps to https://example.com/apps"));
  EXPECT_THAT(elements("Try it"), ElementsAre("heading Plugin", "link Share to mailto:?body=Try%20it"));
  EXPECT_THAT(elements(std::nullopt, "https://example.com/apps"),
              ElementsAre("heading Plugin", "link More apps to https://example.com/apps"));
}

TEST_F(AboutWindowControllerTest, SpeaksTheUsersLanguage) {
  desktop.bundle.entries = {{"Name", "Plugin"}, {"Version", "1.2"}};
  desktop.strings.translations = {{"Version %@", "Version %@ (deutsch)"}, {"About %@", "Info zu %@"}};
  EXPECT_THAT(elements(), ElementsAre("heading Plugin", "text Version 1.2 (deutsch)"));
  EXPECT_EQ(desktop.windows.made.back()->content.title, "Info zu Plugin");
}

TEST_F(AboutWindowControllerTest, HasAWindowThatIsNotShownYet) {
  const auto controller = AboutWindowController::createWithWindow(std::nullopt, std::nullopt);
  ASSERT_NE(controller->window(), nullptr);
  EXPECT_FALSE(desktop.windows.made.back()->isVisible);
}

TEST_F(AboutWindowControllerTest, HasNoWindowWithoutADisplay) {
  desktop.windows.hasDisplay = false;
  EXPECT_EQ(AboutWindowController::createWithWindow(std::nullopt, std::nullopt)->window(), nullptr);
  EXPECT_THAT(desktop.windows.made, IsEmpty());
}

}  // namespace
