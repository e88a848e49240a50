#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include "BrowserSessions/Chromium/TitleHistory.h"
#include "Tests/BrowserSessions/BrowserSessionPrinting.h"
#include "Tests/Support/TemporaryFolder.h"

namespace BrowserSessions {
namespace {

using std::filesystem::path;

// The table that the browser makes.
constexpr const char* makeTable =
    "CREATE TABLE urls(id INTEGER PRIMARY KEY AUTOINCREMENT, url LONGVARCHAR, title LONGVARCHAR, visit_count INTEGER);"
    "CREATE INDEX urls_url_index ON urls (url);";

constexpr const char* threePages =
    "INSERT INTO urls(url, title) VALUES ('https://a.example/', 'Tür 🎈'), ('https://b.example/', ''), "
    "('https://c.example/', NULL);";

// A connection that writes into the database, like the browser's own.
class Writer {
 public:
  explicit Writer(const path& file) {
    sqlite3* opened = nullptr;
    sqlite3_open(file.c_str(), &opened);
    database_.reset(opened);
  }
  void run(const std::string& statements) const {
    if (sqlite3_exec(database_.get(), statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
      throw std::runtime_error(sqlite3_errmsg(database_.get()));
  }

 private:
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
  };
  std::unique_ptr<sqlite3, Close> database_;
};

class TitleHistoryTest : public testing::Test {
 protected:
  void write(const std::string& statements) const { Writer(file()).run(statements); }
  [[nodiscard]] std::string titleOf(const std::string& url) const { return TitleHistory(profile()).titleOf(url); }

  [[nodiscard]] path profile() const { return folder_.path(); }
  [[nodiscard]] path file() const { return profile() / "History"; }
  [[nodiscard]] std::string bytes() const {
    std::ifstream stream(file(), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  [[nodiscard]] std::set<std::string> files() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(profile()))
      names.insert(entry.path().filename());
    return names;
  }

  TestSupport::TemporaryFolder folder_;
};

TEST_F(TitleHistoryTest, KnowsThePagesThatTheBrowserHasShown) {
  write(std::string(makeTable) + threePages);
  EXPECT_EQ(titleOf("https://a.example/"), "Tür 🎈");
  EXPECT_EQ(titleOf("https://b.example/"), "");
  EXPECT_EQ(titleOf("https://c.example/"), "");
  EXPECT_EQ(titleOf("https://d.example/"), "");
  EXPECT_EQ(titleOf("https://a.example"), "");
  EXPECT_EQ(titleOf("' OR 1 --"), "");
}

TEST_F(TitleHistoryTest, IsReadWhileTheBrowserHasItLocked) {
  write(std::string(makeTable) + threePages);
  const Writer browser(file());
  browser.run("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE; UPDATE urls SET title = 'not yet';");
  EXPECT_EQ(titleOf("https://a.example/"), "Tür 🎈");
  browser.run("COMMIT");
  EXPECT_EQ(titleOf("https://a.example/"), "not yet");
}

TEST_F(TitleHistoryTest, LeavesNothingBehindAndChangesNothing) {
  write(std::string(makeTable) + "PRAGMA journal_mode = WAL;" + threePages);
  const std::string before = bytes();
  const auto time = std::filesystem::last_write_time(file());
  EXPECT_EQ(titleOf("https://a.example/"), "Tür 🎈");
  EXPECT_EQ(files(), std::set<std::string>{"History"});
  EXPECT_EQ(bytes(), before);
  EXPECT_EQ(std::filesystem::last_write_time(file()), time);
}

TEST_F(TitleHistoryTest, IsNotMadeWhereItIsMissing) {
  EXPECT_EQ(titleOf("https://a.example/"), "");
  EXPECT_TRUE(files().empty());
}

TEST_F(TitleHistoryTest, HasNoTitlesWhereItIsSomethingElse) {
  folder_.write("History", "");
  EXPECT_EQ(titleOf("https://a.example/"), "") << "an empty file";
  folder_.write("History", std::string(100'000, 'x'));
  EXPECT_EQ(titleOf("https://a.example/"), "") << "no database";
  std::filesystem::remove(file());
  write("CREATE TABLE pages(url, title)");
  EXPECT_EQ(titleOf("https://a.example/"), "") << "another database";
  std::filesystem::remove(file());
  std::filesystem::create_directory(file());
  EXPECT_EQ(titleOf("https://a.example/"), "") << "a folder";
  std::filesystem::remove(file());
  ASSERT_EQ(mkfifo(file().c_str(), 0600), 0);
  EXPECT_EQ(titleOf("https://a.example/"), "") << "a pipe";
}

TEST_F(TitleHistoryTest, IsFoundWhateverItsFolderIsCalled) {
  const path profile = folder_.path() / "Profile 1 %41?mode=rw#ü";
  std::filesystem::create_directory(profile);
  Writer(profile / "History").run(std::string(makeTable) + threePages);
  EXPECT_EQ(TitleHistory(profile).titleOf("https://a.example/"), "Tür 🎈");
}

TEST_F(TitleHistoryTest, GivesUpOnADatabaseThatWouldTakeLong) {
  write(
      "CREATE VIEW urls AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
      "SELECT i AS url, i AS title FROM n;");
  EXPECT_EQ(titleOf("https://a.example/"), "") << "endless";
  std::filesystem::remove(file());
  write(
      "CREATE TABLE urls(url, title); WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT 100000) "
      "INSERT INTO urls SELECT 'https://' || i, i FROM n; INSERT INTO urls VALUES ('https://a.example/', 'A');");
  EXPECT_EQ(titleOf("https://a.example/"), "") << "without an index";
}

TEST_F(TitleHistoryTest, FindsATitleAmongManyAtOnce) {
  write(std::string(makeTable) + threePages +
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT 300000) "
        "INSERT INTO urls(url, title) SELECT 'https://' || i, 'page ' || i FROM n;");
  EXPECT_EQ(titleOf("https://a.example/"), "Tür 🎈");
  EXPECT_EQ(titleOf("https://299999"), "page 299999");
}

TEST_F(TitleHistoryTest, HasNoTitlesThatAreHugeOrNoText) {
  write(std::string(makeTable) +
        "INSERT INTO urls(url, title) VALUES ('huge', zeroblob(2000000)), "
        "('long', printf('%.*c', 5000, 'x')), "
        "('bytes', x'4100FF'), ('number', 7), ('https://a.example/', 'A');");
  TitleHistory history(profile());
  EXPECT_EQ(history.titleOf("huge"), "");
  EXPECT_EQ(history.titleOf("long"), std::string(999, 'x') + "…");
  EXPECT_EQ(history.titleOf("bytes"), "A\uFFFD\uFFFD");
  EXPECT_EQ(history.titleOf("number"), "7");
  EXPECT_EQ(history.titleOf(std::string(2'000'000, 'u')), "");
  EXPECT_EQ(history.titleOf("https://a.example/"), "A") << "after all of these";
}

TEST_F(TitleHistoryTest, IsSoundWhereverTheDatabaseIsDamaged) {
  write(std::string(makeTable) + "PRAGMA page_size = 512; VACUUM;" + threePages);
  const std::string sound = bytes();
  for (std::size_t position = 0; position < sound.size(); position += 11) {
    std::string damaged = sound;
    damaged[position] = static_cast<char>(~damaged[position]);
    folder_.write("History", damaged);
    const std::string title = titleOf("https://a.example/");
    EXPECT_LT(title.size(), sound.size()) << position;
  }
  for (std::size_t size = 0; size < sound.size(); size += 97) {
    folder_.write("History", sound.substr(0, size));
    EXPECT_LT(titleOf("https://a.example/").size(), sound.size()) << size;
  }
}

TEST_F(TitleHistoryTest, IsReadOnceForEachPage) {
  write(std::string(makeTable) + threePages);
  TitleHistory history(profile());
  EXPECT_EQ(history.titleOf("https://a.example/"), "Tür 🎈");
  write("UPDATE urls SET title = 'changed'");
  EXPECT_EQ(history.titleOf("https://a.example/"), "Tür 🎈");
}

TEST_F(TitleHistoryTest, CompletesTheTabsThatHaveNoTitle) {
  write(std::string(makeTable) + threePages);
  std::vector<ChromiumWindow> windows = {
      {1, {{{"", "https://a.example/"}, {"Own", "https://a.example/"}, {"", ""}}, 1}},
      {2, {{{"", "https://d.example/"}, {"", "https://a.example/"}}, 0}}};
  TitleHistory history(profile());
  addTitles(windows, history);
  const BrowserSession expected = {{{{"Tür 🎈", "https://a.example/"}, {"Own", "https://a.example/"}, {"", ""}}, 1},
                                   {{{"", "https://d.example/"}, {"Tür 🎈", "https://a.example/"}}, 0}};
  EXPECT_EQ(browserSession({windows}), expected);
  EXPECT_EQ(history.problem(), "");
}

const std::expected<SQLiteLibrary, std::string>& noLibrary() {
  static const std::expected<SQLiteLibrary, std::string> missing = std::unexpected("There is no SQLite.");
  return missing;
}

TEST_F(TitleHistoryTest, SaysThatItNeedsTheLibrary) {
  write(std::string(makeTable) + threePages);
  TitleHistory history(profile(), noLibrary);
  std::vector<ChromiumWindow> windows = {{1, {{{"Own", "https://a.example/"}}, 0}}};
  addTitles(windows, history);
  EXPECT_EQ(history.problem(), "") << "nothing was looked up";
  EXPECT_EQ(history.titleOf("https://a.example/"), "");
  EXPECT_EQ(history.titleOf("https://b.example/"), "");
  EXPECT_EQ(history.problem(), "The titles of pages in " + file().string() + " are unknown: There is no SQLite.");
}

TEST_F(TitleHistoryTest, NeedsNoLibraryWhereItIsMissing) {
  TitleHistory history(profile(), noLibrary);
  EXPECT_EQ(history.titleOf("https://a.example/"), "");
  EXPECT_EQ(history.problem(), "");
}

}  // namespace
}  // namespace BrowserSessions
