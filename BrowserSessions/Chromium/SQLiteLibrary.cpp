#include "BrowserSessions/Chromium/SQLiteLibrary.h"

#include "DesktopSupport/System/SharedLibrary.h"

namespace BrowserSessions {

namespace {

std::expected<SQLiteLibrary, std::string> loaded() {
  DesktopSupport::SharedLibrary library("libsqlite3.so.0");
  SQLiteLibrary functions = {};
  library.find("sqlite3_bind_text", functions.bindText);
  library.find("sqlite3_close_v2", functions.close);
  library.find("sqlite3_column_blob", functions.columnBlob);
  library.find("sqlite3_column_bytes", functions.columnBytes);
  library.find("sqlite3_finalize", functions.finalize);
  library.find("sqlite3_limit", functions.limit);
  library.find("sqlite3_open_v2", functions.open);
  library.find("sqlite3_prepare_v2", functions.prepare);
  library.find("sqlite3_progress_handler", functions.progressHandler);
  library.find("sqlite3_reset", functions.reset);
  library.find("sqlite3_step", functions.step);
  return library.with(functions);
}

}  // namespace

const std::expected<SQLiteLibrary, std::string>& SQLiteLibrary::load() {
  static const std::expected<SQLiteLibrary, std::string> library = loaded();
  return library;
}

}  // namespace BrowserSessions
