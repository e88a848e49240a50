#include <gtest/gtest.h>

#include "DesktopSupport/System/KeyFileGroup.h"
#include "Tests/Support/EnvironmentVariable.h"

namespace {

using DesktopSupport::KeyFileGroup;
using TestSupport::EnvironmentVariable;

std::optional<std::string> valueOf(std::string_view line) {
  const std::string text = "[Group]\n" + std::string(line) + '\n';
  const auto group = KeyFileGroup::parse(text, "Group");
  return group ? group->text("Key") : std::nullopt;
}

TEST(KeyFileGroup, ReadsTheKeysOfTheGroupAskedFor) {
  const auto group = KeyFileGroup::parse("[First]\nKey=1\n[Second]\nKey=2\n[Third]\nKey=3\n", "Second");
  ASSERT_TRUE(group);
  EXPECT_EQ(group->text("Key"), "2");
}

TEST(KeyFileGroup, IsAbsentWithoutItsHeading) {
  EXPECT_FALSE(KeyFileGroup::parse("", "Group"));
  EXPECT_FALSE(KeyFileGroup::parse("Key=1\n", "Group"));
  EXPECT_FALSE(KeyFileGroup::parse("[Groups]\nKey=1\n", "Group"));
  EXPECT_FALSE(KeyFileGroup::parse("[Group\nKey=1\n", "Group"));
}

TEST(KeyFileGroup, RefusesLinesThatMeanNothing) {
  EXPECT_FALSE(KeyFileGroup::parse("[Group]\nnonsense\n", "Group"));
  EXPECT_FALSE(KeyFileGroup::parse("[Group]\n=value\n", "Group"));
  EXPECT_FALSE(
      KeyFileGroup::parse("\x7f"
                          "ELF\x02\x01\n[Group]\nKey=1\n",
                          "Group"));
}

TEST(KeyFileGroup, IgnoresWhatFollowsItsGroup) {
  EXPECT_TRUE(KeyFileGroup::parse("[Group]\nKey=1\n[Other]\nnonsense\n", "Group"));
}

TEST(KeyFileGroup, SkipsCommentsAndEmptyLines) {
  EXPECT_EQ(valueOf("# Key=2\n\n   \n#[Other]\nKey=1"), "1");
}

TEST(KeyFileGroup, TrimsBlanksAroundKeysAndValues) {
  EXPECT_EQ(valueOf("  Key =  a b  "), "a b");
}

TEST(KeyFileGroup, ReadsLinesThatEndWithCarriageReturns) {
  EXPECT_EQ(valueOf("Key=1\r"), "1");
}

TEST(KeyFileGroup, ReadsALastLineWithoutItsEnd) {
  EXPECT_EQ(KeyFileGroup::parse("[Group]\nKey=1", "Group")->text("Key"), "1");
}

TEST(KeyFileGroup, ResolvesEscapes) {
  EXPECT_EQ(valueOf(R"(Key=\sa\tb\nc\rd\\e)"), " a\tb\nc\rd\\e");
  EXPECT_EQ(valueOf(R"(Key=a\qb\)"), R"(a\qb\)");
}

TEST(KeyFileGroup, KeepsEqualsSignsInValues) {
  EXPECT_EQ(valueOf("Key=a=b"), "a=b");
}

TEST(KeyFileGroup, TakesTheLastOfSeveralValues) {
  EXPECT_EQ(valueOf("Key=1\nKey=2"), "2");
}

TEST(KeyFileGroup, HasNoValueThatIsNotUTF8) {
  EXPECT_EQ(valueOf("Key=Caf\xe9"), std::nullopt);
}

TEST(KeyFileGroup, TellsAnEmptyValueFromNone) {
  EXPECT_EQ(valueOf("Key="), "");
  EXPECT_EQ(valueOf("Other=1"), std::nullopt);
}

TEST(KeyFileGroup, IsTrueOnlyByThatWord) {
  const auto group = KeyFileGroup::parse("[G]\nA=true\nB=false\nC=1\nD=True\n", "G");
  EXPECT_TRUE(group->isTrue("A"));
  for (const char* key : {"B", "C", "D", "E"})
    EXPECT_FALSE(group->isTrue(key)) << key;
}

constexpr std::string_view translated =
    "[G]\nName=Files\nName[de]=Dateien\nName[de_AT]=Dateien (AT)\nName[sr@latin]=Datoteke\nName[fr]=\xff\n";

std::optional<std::string> nameFor(const char* language) {
  const EnvironmentVariable variable("LANGUAGE", language);
  return KeyFileGroup::parse(translated, "G")->localizedText("Name");
}

TEST(KeyFileGroup, ChoosesTheUsersLanguage) {
  EXPECT_EQ(nameFor("de"), "Dateien");
  EXPECT_EQ(nameFor("de_AT.UTF-8"), "Dateien (AT)");
  EXPECT_EQ(nameFor("de_CH"), "Dateien");
  EXPECT_EQ(nameFor("sr@latin"), "Datoteke");
}

TEST(KeyFileGroup, ChoosesTheFirstLanguageThereIs) {
  EXPECT_EQ(nameFor("nl:de:en"), "Dateien");
}

TEST(KeyFileGroup, FallsBackToTheUntranslatedText) {
  EXPECT_EQ(nameFor("nl"), "Files");
  EXPECT_EQ(nameFor("C"), "Files");
  EXPECT_EQ(nameFor("fr"), "Files") << "a translation that is not UTF-8";
}

}  // namespace
