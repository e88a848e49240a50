#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <unordered_map>

#include "BrowserSessions/LoggedSession.h"

struct sqlite3;
struct sqlite3_stmt;

namespace BrowserSessions {

/// The titles that pages had when a browser of the Chromium family last showed them: the History database of a profile,
/// which the browser writes every ten seconds. It is read as it lies there, past the browser's lock on it; nothing is
/// written, not even beside it. A page has an empty title where the database does not know it, or is missing, damaged
/// or of another make. It is opened once it is needed, and each page looked up once, in the same short time however
/// many pages the database has.
class TitleHistory {
 public:
  explicit TitleHistory(std::filesystem::path profile) : profile_(std::move(profile)) {}

  /// The title of the page with this address.
  const std::string& titleOf(const std::string& url);

 private:
  struct Close {
    void operator()(sqlite3* database) const;
    void operator()(sqlite3_stmt* query) const;
  };

  void open();
  [[nodiscard]] std::string lookUp(const std::string& url);

  std::filesystem::path profile_;
  bool isOpened_ = false;
  std::unique_ptr<sqlite3, Close> database_;
  std::unique_ptr<sqlite3_stmt, Close> query_;
  std::unordered_map<std::string, std::string> titles_;
};

/// Gives the tabs that have no title the one of the profile's history.
void addTitles(std::vector<ChromiumWindow>& windows, const std::filesystem::path& profile);

}  // namespace BrowserSessions
