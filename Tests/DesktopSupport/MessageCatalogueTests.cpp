#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

#include <gmock/gmock.h>

#include "DesktopSupport/System/MessageCatalogue.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/TemporaryFolder.h"

using DesktopSupport::MessageCatalogue;
using testing::Eq;
using testing::Optional;

namespace {

constexpr const char* translations = R"(
msgid ""
msgstr "Content-Type: text/plain; charset=UTF-8\n"

msgid "Plugin cannot be installed."
msgstr "プラグインをインストールできません。"

msgid "OK"
msgstr "好"
)";

class MessageCatalogueTest : public testing::Test {
 protected:
  MessageCatalogueTest() : bytes(compiled(translations)) {}

  [[nodiscard]] std::string compiled(const std::string& source) const {
    const auto file = folder.path() / "catalogue.mo";
    EXPECT_EQ(TestSupport::run({"msgfmt", "--output-file=" + file.string(), folder.write("source.po", source)}), 0);
    std::ostringstream contents;
    contents << std::ifstream(file).rdbuf();
    return contents.str();
  }

  void expectDamaged(const std::string& damaged) const {
    EXPECT_FALSE(MessageCatalogue::parse(damaged)) << testing::PrintToString(damaged);
  }

  /// The file with the number at this offset replaced.
  [[nodiscard]] std::string with(std::size_t offset, const std::string& number) const {
    return std::string(bytes).replace(offset, number.size(), number);
  }

  TestSupport::TemporaryFolder folder;
  std::string bytes;
};

TEST_F(MessageCatalogueTest, TranslatesTheKeysItHas) {
  const auto catalogue = MessageCatalogue::parse(bytes);
  ASSERT_TRUE(catalogue);
  EXPECT_THAT(catalogue->translation("OK"), Optional(Eq("好")));
  EXPECT_THAT(catalogue->translation("Plugin cannot be installed."),
              Optional(Eq("プラグインをインストールできません。")));
}

TEST_F(MessageCatalogueTest, HasNoTranslationOfOtherKeys) {
  const auto catalogue = MessageCatalogue::parse(bytes);
  ASSERT_TRUE(catalogue);
  for (const auto* key : {"", "O", "OK ", "ok", "Plugin"})
    EXPECT_EQ(catalogue->translation(key), std::nullopt) << key;
}

TEST_F(MessageCatalogueTest, TakesTheFirstFormOfATextWithAPlural) {
  const auto catalogue = MessageCatalogue::parse(compiled(
      "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\nPlural-Forms: nplurals=2; plural=n != 1;\\n\"\n"
      "msgid \"tab\"\nmsgid_plural \"tabs\"\nmsgstr[0] \"Reiter\"\nmsgstr[1] \"mehrere\"\n"));
  ASSERT_TRUE(catalogue);
  EXPECT_THAT(catalogue->translation("tab"), Optional(Eq("Reiter")));
}

TEST_F(MessageCatalogueTest, CanBeEmpty) {
  const auto catalogue =
      MessageCatalogue::parse(compiled("msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n"));
  ASSERT_TRUE(catalogue);
  EXPECT_EQ(catalogue->translation("OK"), std::nullopt);
}

TEST_F(MessageCatalogueTest, IsRefusedWhereverItIsCutOff) {
  for (std::size_t length = 0; length < bytes.size(); ++length)
    expectDamaged(bytes.substr(0, length));
}

TEST_F(MessageCatalogueTest, IsRefusedWithNumbersThatPointOutside) {
  for (const std::string& number : {std::string("\xFF\xFF\xFF\xFF"), std::string("\xFF\xFF\xFF\x7F"),
                                    std::string("\xF8\xFF\xFF\xFF"), std::string("\x00\x00\x00\x80", 4)}) {
    expectDamaged(with(8, number));   // how many texts there are
    expectDamaged(with(12, number));  // where the table of keys is
    expectDamaged(with(16, number));  // where the table of translations is
    expectDamaged(with(28, number));  // the first key's length
    expectDamaged(with(32, number));  // the first key's offset
  }
}

TEST_F(MessageCatalogueTest, IsRefusedInAFormatOfTheFuture) {
  EXPECT_TRUE(MessageCatalogue::parse(with(4, std::string("\x01\x00\x01\x00", 4))));
  expectDamaged(with(4, std::string("\x00\x00\x02\x00", 4)));
}

TEST_F(MessageCatalogueTest, IsRefusedInAnotherByteOrderOrEncoding) {
  expectDamaged(with(0, "\x95\x04\x12\xDE"));
  expectDamaged(with(bytes.find("好"), "\xFF"));
}

TEST_F(MessageCatalogueTest, TakesAnyByteWithoutHarm) {
  std::mt19937 random(4711);
  for (int i = 0; i < 20000; ++i) {
    std::string damaged = bytes;
    for (int changes = 0; changes < 3; ++changes)
      damaged[random() % damaged.size()] = static_cast<char>(random());
    if (const auto catalogue = MessageCatalogue::parse(damaged))
      (void)catalogue->translation("OK");
  }
}

TEST_F(MessageCatalogueTest, IsReadFromRegularFilesOnly) {
  EXPECT_TRUE(MessageCatalogue::read(folder.write("good.mo", bytes)));
  EXPECT_FALSE(MessageCatalogue::read(folder.path()));
  EXPECT_FALSE(MessageCatalogue::read(folder.path() / "missing.mo"));
  EXPECT_FALSE(MessageCatalogue::read(folder.write("large.mo", bytes + std::string(1 << 20, '\0'))));
}

}  // namespace
