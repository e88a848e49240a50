#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "BrowserSessions/Chromium/ChromiumProfile.h"
#include "Tests/Support/TemporaryFolder.h"

namespace BrowserSessions {
namespace {

class OpenChromiumProfiles : public testing::Test {
 protected:
  OpenChromiumProfiles() {
    for (const char* profile : {"Default", "Profile 1", "Profile 2"})
      std::filesystem::create_directory(folder_.path() / profile);
  }

  void state(const std::string& json) const { folder_.write("Local State", json); }

  // The names of the profiles' folders.
  [[nodiscard]] std::vector<std::string> profiles() const {
    std::vector<std::string> names;
    for (const auto& profile : openChromiumProfiles(folder_.path()))
      names.push_back(profile.lexically_relative(folder_.path()));
    return names;
  }

  TestSupport::TemporaryFolder folder_;
};

using Names = std::vector<std::string>;

TEST_F(OpenChromiumProfiles, TellsWhichProfilesAreOpen) {
  state(R"({"a": [1, {"profile": 2}], "profile": {"info_cache": {"Profile 2": {"last_used": "x"}},
            "last_active_profiles": ["Profile 1", "Default", "Profile 1"], "last_used": "Profile 2"}, "z": {}})");
  EXPECT_EQ(profiles(), (Names{"Profile 1", "Default"}));
}

TEST_F(OpenChromiumProfiles, HasTheProfileThatWasUsedLastFirst) {
  state(R"({"profile": {"last_active_profiles": ["Profile 1", "Default", "Profile 2"], "last_used": "Profile 2"}})");
  EXPECT_EQ(profiles(), (Names{"Profile 2", "Profile 1", "Default"}));
}

TEST_F(OpenChromiumProfiles, FallsBackOnTheProfileThatWasUsedLast) {
  state(R"({"profile": {"last_used": "Profile 2"}})");
  EXPECT_EQ(profiles(), Names{"Profile 2"});
  state(R"({"profile": {"last_used": "Profile 2", "last_active_profiles": []}})");
  EXPECT_EQ(profiles(), Names{"Profile 2"});
}

TEST_F(OpenChromiumProfiles, FallsBackOnTheFirstProfileIfTheStateIsUseless) {
  EXPECT_EQ(profiles(), Names{"Default"}) << "no file";
  for (const char* json : {"", "{}", "[]", "null", "7", "{\"profile\"", R"({"profile": []})", R"({"profile": {}})",
                           R"({"last_used": "Profile 2"})", R"({"a": {"profile": {"last_used": "Profile 2"}}})",
                           R"({"profile": {"last_used": 7, "last_active_profiles": "Profile 1"}})",
                           R"({"profile": {"last_used": {"a": 1}, "last_active_profiles": [7, null, [], {}]}})",
                           "{\"profile\": {\"last_used\": \"\xFF\"}}"}) {
    state(json);
    EXPECT_EQ(profiles(), Names{"Default"}) << json;
  }
}

TEST_F(OpenChromiumProfiles, HasNoProfilesElsewhere) {
  state(R"({"profile": {"last_active_profiles": ["..", ".", "", "/", "Default/..", "../x", "Profile 1\u0000", "gone",
            "Profile 1"]}})");
  EXPECT_EQ(profiles(), Names{"Profile 1"});
}

TEST_F(OpenChromiumProfiles, IsSoundWhereverItsStateIsCut) {
  const std::string json = R"({"profile": {"last_active_profiles": ["Profile 1"], "last_used": "Profile 2"}})";
  for (std::size_t size = 0; size < json.size(); ++size) {
    state(json.substr(0, size));
    EXPECT_EQ(profiles(), Names{"Default"}) << size;
  }
}

TEST_F(OpenChromiumProfiles, TakesAStateThatIsNestedDeeplyOrLongOrTooLarge) {
  state(std::string(300'000, '['));
  EXPECT_EQ(profiles(), Names{"Default"});
  state(R"({"profile": {"last_used": )" + std::string(300'000, '['));
  EXPECT_EQ(profiles(), Names{"Default"});
  std::string many = R"({"profile": {"last_active_profiles": ["Profile 1")";
  for (int number = 0; number < 30'000; ++number)
    many += ",\"P" + std::to_string(number) + '"';
  state(many + "]}}");
  EXPECT_EQ(profiles(), Names{"Profile 1"});
  state(std::string(5'000'000, ' ') + R"({"profile": {"last_used": "Profile 2"}})");
  EXPECT_EQ(profiles(), Names{"Default"});
}

TEST_F(OpenChromiumProfiles, MayItselfBeTheOnlyProfile) {
  const TestSupport::TemporaryFolder folder;
  EXPECT_EQ(openChromiumProfiles(folder.path()), std::vector{folder.path()});
  EXPECT_TRUE(openChromiumProfiles(folder.path() / "missing").empty());
}

}  // namespace
}  // namespace BrowserSessions
