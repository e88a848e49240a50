#include <string>

#include <gtest/gtest.h>

#include "UpdateCheck/UpdateState.h"

namespace {

using namespace std::chrono_literals;
using UpdateCheck::UpdateState;

constexpr std::chrono::sys_seconds noon{1'700'000'000s};

UpdateState checkedAt(std::chrono::sys_seconds time) {
  return {.lastCheck = time, .announcedVersion = std::nullopt};
}

TEST(UpdateState, ComesBackAsItWasWritten) {
  for (const std::string version : {"2.0", "", " 2 ", "2\n[Updates]\nLastCheck=1", "\\s;#="}) {
    const UpdateState state = UpdateState::parse(
        UpdateState{.lastCheck = noon, .lastAttempt = noon + 5s, .announcedVersion = version}.text());
    EXPECT_EQ(state.lastCheck, noon);
    EXPECT_EQ(state.lastAttempt, noon + 5s);
    EXPECT_EQ(state.announcedVersion, version);
  }
}

TEST(UpdateState, MayRememberNothing) {
  const UpdateState state = UpdateState::parse(UpdateState{}.text());
  EXPECT_EQ(state.lastCheck, std::nullopt);
  EXPECT_EQ(state.lastAttempt, std::nullopt);
  EXPECT_EQ(state.announcedVersion, std::nullopt);
}

TEST(UpdateState, RemembersNothingFromADamagedText) {
  for (const std::string text :
       {"", "LastCheck=1", "[Updates", "[Updates]\nLastCheck\n", "\xff\xfe", "[Updates]\n\xff=1\n"})
    EXPECT_TRUE(UpdateState::parse(text).isDue(noon, 24h)) << text;
}

TEST(UpdateState, PassesOverTimesThatAreNone) {
  for (const std::string time : {"yesterday", "-5", "1.5", "0x10"})
    EXPECT_EQ(UpdateState::parse("[Updates]\nLastCheck=" + time + "\n").lastCheck, std::nullopt) << time;
}

TEST(UpdateState, KeepsWhatIsGoodOfAHalfDamagedText) {
  EXPECT_EQ(UpdateState::parse("[Updates]\nLastCheck=x\nAnnouncedVersion=2\n").announcedVersion, "2");
}

TEST(UpdateState, IsDueOnceTheIntervalHasGoneBy) {
  EXPECT_FALSE(checkedAt(noon).isDue(noon + 59s, 60s));
  EXPECT_TRUE(checkedAt(noon).isDue(noon + 60s, 60s));
  EXPECT_TRUE(checkedAt(noon).isDue(noon, 0s));
  EXPECT_FALSE(checkedAt(noon).isDue(noon, 1s));
}

TEST(UpdateState, IsDueWhereNobodyEverChecked) {
  EXPECT_TRUE(UpdateState{}.isDue(noon, 24h));
}

TEST(UpdateState, IsDueSoonAfterAnAttemptThatFailed) {
  const UpdateState state{.lastCheck = noon - 24h, .lastAttempt = noon, .announcedVersion = std::nullopt};
  EXPECT_FALSE(state.isDue(noon + 15min - 1s, 24h));
  EXPECT_TRUE(state.isDue(noon + 15min, 24h));
  EXPECT_FALSE(state.isDue(noon + 59s, 60s)) << "the interval is shorter";
  EXPECT_TRUE(state.isDue(noon + 60s, 60s));
}

TEST(UpdateState, IsNotDueBeforeTheIntervalHasGoneByWhateverWasAttempted) {
  const UpdateState state{.lastCheck = noon, .lastAttempt = noon - 15min, .announcedVersion = std::nullopt};
  EXPECT_FALSE(state.isDue(noon + 24h - 1s, 24h));
}

TEST(UpdateState, IsDueWhereTheLastCheckIsStillToCome) {
  EXPECT_TRUE(checkedAt(noon + 1s).isDue(noon, 24h));
  const UpdateState attempted{.lastCheck = std::nullopt, .lastAttempt = noon + 1s, .announcedVersion = std::nullopt};
  EXPECT_TRUE(attempted.isDue(noon, 24h));
  EXPECT_TRUE(UpdateState::parse("[Updates]\nLastCheck=99999999999999999999999\n").isDue(noon, 24h));
}

TEST(UpdateState, TakesAnotherSpellingOfTheVersionAsAnnounced) {
  const UpdateState state{.lastCheck = noon, .announcedVersion = "2.0"};
  EXPECT_TRUE(state.hasAnnounced("2.0"));
  EXPECT_TRUE(state.hasAnnounced("2.0.0"));
  EXPECT_FALSE(state.hasAnnounced("2.1"));
  EXPECT_FALSE(UpdateState{}.hasAnnounced("0"));
}

}  // namespace
