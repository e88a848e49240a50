#include <filesystem>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "Linux/Bundle.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

using TestSupport::EnvironmentVariable;

namespace {

namespace fs = std::filesystem;

class StringsTest : public testing::Test {
 protected:
  StringsTest() { bundle.write("Info.ini", "[Bundle]\nIdentifier=com.example.Plugin\n"); }

  [[nodiscard]] fs::path catalogue(const std::string& language) const {
    return bundle.path() / "locale" / language / "LC_MESSAGES/com.example.Plugin.mo";
  }

  void translate(const std::string& language, const std::string& translation) const {
    const auto source = bundle.write("source.po", "msgid \"Hello\"\nmsgstr \"" + translation + "\"\n");
    fs::create_directories(catalogue(language).parent_path());
    EXPECT_EQ(TestSupport::run({"msgfmt", "--output-file=" + catalogue(language).string(), source}), 0);
  }

  void damage(const std::string& language, std::string_view contents) const {
    bundle.write(fs::relative(catalogue(language), bundle.path()), contents);
  }

  /// The text in a process with this environment.
  [[nodiscard]] std::string hello(const std::string& language, const std::string& locale = "C.UTF-8") const {
    const EnvironmentVariable setLanguage("LANGUAGE", language);
    const EnvironmentVariable setLocale("LANG", locale);
    return Linux::Strings(Linux::Bundle(bundle.path())).localized("Hello", "Greeting");
  }

  TestSupport::TemporaryFolder bundle;

 private:
  EnvironmentVariable withoutAll_{"LC_ALL", std::nullopt};
  EnvironmentVariable withoutMessages_{"LC_MESSAGES", std::nullopt};
};

TEST_F(StringsTest, SpeaksTheLanguageOfTheUser) {
  translate("de", "Hallo");
  translate("zh_CN", "Ni hao");
  EXPECT_EQ(hello("de"), "Hallo");
  EXPECT_EQ(hello("de_AT"), "Hallo");
  EXPECT_EQ(hello("zh_CN"), "Ni hao");
  EXPECT_EQ(hello("", "de_DE.UTF-8"), "Hallo");
}

TEST_F(StringsTest, SpeaksEnglishIfTheUserHasAnotherLanguage) {
  translate("de", "Hallo");
  for (const auto* language : {"", "fr", "en", "zh_TW", "../de/..", "/", ":::"})
    EXPECT_EQ(hello(language), "Hello") << language;
}

TEST_F(StringsTest, TakesTheFirstOfTheUsersLanguagesThatItKnows) {
  translate("de", "Hallo");
  translate("fr", "Bonjour");
  EXPECT_EQ(hello("ja:fr:de"), "Bonjour");
  EXPECT_EQ(hello("en_GB:de"), "Hello");
}

TEST_F(StringsTest, SpeaksEnglishInTheLocaleWithoutALanguage) {
  translate("de", "Hallo");
  EXPECT_EQ(hello("de", "C"), "Hello");
  EXPECT_EQ(hello("de", "POSIX"), "Hello");
  EXPECT_EQ(hello("de", ""), "Hello");
  const EnvironmentVariable all("LC_ALL", "C");
  EXPECT_EQ(hello("de", "de_DE.UTF-8"), "Hello");
}

TEST_F(StringsTest, ShowsTheKeyIfItIsNotTranslated) {
  translate("de", "Hallo");
  const EnvironmentVariable language("LANGUAGE", "de");
  const EnvironmentVariable locale("LANG", "C.UTF-8");
  const Linux::Strings strings{Linux::Bundle(bundle.path())};
  EXPECT_EQ(strings.localized("Hello", "Greeting"), "Hallo");
  EXPECT_EQ(strings.localized("Goodbye", "Greeting"), "Goodbye");
  EXPECT_EQ(strings.localized("", ""), "");
}

TEST_F(StringsTest, SpeaksEnglishIfTheCatalogueIsDamaged) {
  translate("de", "Hallo");
  fs::resize_file(catalogue("de"), fs::file_size(catalogue("de")) / 2);
  EXPECT_EQ(hello("de"), "Hello");
  for (const auto* contents : {"", "msgid", "\xDE\x12\x04\x95", "\xDE\x12\x04\x95\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"}) {
    damage("de", contents);
    EXPECT_EQ(hello("de"), "Hello") << testing::PrintToString(contents);
  }
}

TEST_F(StringsTest, SpeaksEnglishIfAFolderIsInTheCataloguesPlace) {
  fs::create_directories(catalogue("de"));
  EXPECT_EQ(hello("de"), "Hello");
}

TEST_F(StringsTest, SpeaksTheNextLanguageIfTheFirstOnesCatalogueIsDamaged) {
  damage("de", "rubbish");
  translate("fr", "Bonjour");
  EXPECT_EQ(hello("de:fr"), "Bonjour");
}

TEST_F(StringsTest, SpeaksEnglishWithoutABundleIdentifier) {
  translate("de", "Hallo");
  fs::remove(bundle.path() / "Info.ini");
  EXPECT_EQ(hello("de"), "Hello");
}

}  // namespace
