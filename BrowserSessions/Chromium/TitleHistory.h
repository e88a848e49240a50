#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "BrowserSessions/Chromium/LoggedSession.h"
#include "BrowserSessions/Chromium/SQLiteLibrary.h"

namespace BrowserSessions {

/// The titles that pages had when a browser of the Chromium family last showed them, from the History database of a
/// profile, which the browser writes every ten seconds. The file is read in spite of the browser's lock on it, and
/// nothing is written, not even next to it. A page's title is empty if the database does not have the page, is missing
/// or damaged, or has another form, or if SQLite cannot be loaded. The database is opened when the first title is
/// needed. Each page is looked up once, and that takes the same short time however many pages there are.
class TitleHistory {
 public:
  explicit TitleHistory(std::filesystem::path profile, decltype(SQLiteLibrary::load) load = SQLiteLibrary::load)
      : profile_(std::move(profile)), load_(load) {}

  /// The title of the page with this address.
  const std::string& titleOf(const std::string& url);

  /// If a title was needed and SQLite could not be loaded, a sentence that says so; otherwise empty.
  [[nodiscard]] const std::string& problem() const { return problem_; }

 private:
  struct Close {
    const SQLiteLibrary* sqlite;
    void operator()(sqlite3* database) const { sqlite->close(database); }
    void operator()(sqlite3_stmt* query) const { sqlite->finalize(query); }
  };

  void open();
  [[nodiscard]] std::string lookUp(const std::string& url);

  std::filesystem::path profile_;
  decltype(&SQLiteLibrary::load) load_;
  std::string problem_;
  bool isOpened_ = false;
  std::unique_ptr<sqlite3, Close> database_;
  std::unique_ptr<sqlite3_stmt, Close> query_;
  std::unordered_map<std::string, std::string> titles_;
};

/// Gives each tab without a title the one in the history of its profile.
void addTitles(std::vector<ChromiumWindow>& windows, TitleHistory& history);

}  // namespace BrowserSessions
