#include <gtest/gtest.h>

#include "Platform/Fake/FakeServices.h"
#include "UpdateCheck/UpdateNotification.h"

namespace {

using UpdateCheck::UpdateTexts;

TEST(UpdateTexts, NameThePluginAndTheVersion) {
  const Platform::Fake::FakeStrings strings;
  const UpdateTexts texts(strings);
  EXPECT_EQ(texts.summary("Gleanery"), "An update for Gleanery is available");
  EXPECT_EQ(texts.body("2.0"), "Version 2.0 can be downloaded.");
  EXPECT_EQ(texts.button(), "Learn More");
}

TEST(UpdateTexts, AreInTheUsersLanguage) {
  Platform::Fake::FakeStrings strings;
  strings.translations["An update for %@ is available"] = "Für %@ gibt es eine neue Version";
  strings.translations["Learn More"] = "Mehr erfahren";
  EXPECT_EQ(UpdateTexts(strings).summary("Gleanery"), "Für Gleanery gibt es eine neue Version");
  EXPECT_EQ(UpdateTexts(strings).button(), "Mehr erfahren");
}

TEST(UpdateTexts, ShowAnyTextOfTheFeedInOneLine) {
  const Platform::Fake::FakeStrings strings;
  EXPECT_EQ(UpdateTexts(strings).body("2\n\x01%@\xff"), "Version 2 %@\uFFFD can be downloaded.");
  EXPECT_EQ(UpdateTexts(strings).body("\u202E1.2"), "Version \\u{202E}1.2 can be downloaded.");
}

TEST(UpdateTexts, HaveACommentForTranslators) {
  const Platform::Fake::FakeStrings strings;
  const UpdateTexts texts(strings);
  (void)texts.summary("");
  (void)texts.body("");
  (void)texts.button();
  EXPECT_EQ(strings.comments.size(), 3U);
  for (const auto& [key, comment] : strings.comments)
    EXPECT_FALSE(comment.empty()) << key;
}

}  // namespace
