#include "BrowserSessions/Chromium/TitleHistory.h"

#include <string_view>
#include <system_error>

#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/Text.h"

namespace BrowserSessions {

namespace {

using DesktopSupport::shortened;
using DesktopSupport::validUTF8;
using std::filesystem::path;

// A lookup takes some twenty steps of the database. Without an index, or with a "table" that is computed, it could take
// any number.
constexpr int maximumSteps = 1000;
constexpr int maximumTextSize = 1 << 20;

int giveUp(void*) {
  return 1;
}

// If the file is a pipe, SQLite would wait for a writer.
bool isFile(const path& file) {
  std::error_code error;
  return std::filesystem::is_regular_file(file, error);
}

std::string uri(const path& file) {
  const DesktopSupport::CharsHandle escaped(
      g_uri_escape_string(file.c_str(), G_URI_RESERVED_CHARS_ALLOWED_IN_PATH, /*allow_utf8=*/FALSE));
  return "file:" + std::string(escaped.get()) + "?immutable=1";
}

}  // namespace

const std::string& TitleHistory::titleOf(const std::string& url) {
  const auto [title, isNew] = titles_.try_emplace(url);
  if (isNew)
    title->second = lookUp(url);
  return title->second;
}

void TitleHistory::open() {
  isOpened_ = true;
  const path file = profile_ / "History";
  if (!isFile(file))
    return;
  const auto& library = load_();
  if (!library) {
    problem_ = "The titles of pages in " + file.string() + " are unknown: " + library.error();
    return;
  }
  const SQLiteLibrary& sqlite = *library;
  sqlite3* database = nullptr;
  const int flags = SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX;
  const int result = sqlite.open(uri(file).c_str(), &database, flags, nullptr);
  database_ = {database, Close{&sqlite}};
  if (result != SQLITE_OK)
    return;
  sqlite.limit(database, SQLITE_LIMIT_LENGTH, maximumTextSize);
  sqlite.progressHandler(database, maximumSteps, giveUp, nullptr);
  sqlite3_stmt* query = nullptr;
  sqlite.prepare(database, "SELECT title FROM urls WHERE url = ? LIMIT 1", -1, &query, nullptr);
  query_ = {query, Close{&sqlite}};
}

std::string TitleHistory::lookUp(const std::string& url) {
  if (!isOpened_)
    open();
  if (!query_ || url.size() > maximumTextSize)
    return {};
  const SQLiteLibrary& sqlite = *query_.get_deleter().sqlite;
  sqlite3_stmt* query = query_.get();
  std::string title;
  sqlite.bindText(query, 1, url.data(), static_cast<int>(url.size()), SQLITE_STATIC);
  if (sqlite.step(query) == SQLITE_ROW)
    if (const auto* text = static_cast<const char*>(sqlite.columnBlob(query, 0)))
      title = validUTF8(shortened({text, static_cast<std::size_t>(sqlite.columnBytes(query, 0))}));
  sqlite.reset(query);
  return title;
}

void addTitles(std::vector<ChromiumWindow>& windows, TitleHistory& history) {
  for (ChromiumWindow& window : windows)
    for (BrowserTab& tab : window.contents.tabs)
      if (tab.title.empty() && !tab.url.empty())
        tab.title = history.titleOf(tab.url);
}

}  // namespace BrowserSessions
