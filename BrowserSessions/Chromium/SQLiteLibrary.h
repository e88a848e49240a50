#pragma once

#include <expected>
#include <string>

#include <sqlite3.h>

namespace BrowserSessions {

/// The functions of SQLite that are used, by their own names without "sqlite3_". It is loaded when a database is read
/// for the first time.
struct SQLiteLibrary {
  decltype(&sqlite3_bind_text) bindText;
  decltype(&sqlite3_close_v2) close;
  decltype(&sqlite3_column_blob) columnBlob;
  decltype(&sqlite3_column_bytes) columnBytes;
  decltype(&sqlite3_finalize) finalize;
  decltype(&sqlite3_limit) limit;
  decltype(&sqlite3_open_v2) open;
  decltype(&sqlite3_prepare_v2) prepare;
  decltype(&sqlite3_progress_handler) progressHandler;
  decltype(&sqlite3_reset) reset;
  decltype(&sqlite3_step) step;

  /// Fails with a sentence if the library is not installed.
  static const std::expected<SQLiteLibrary, std::string>& load();
};

}  // namespace BrowserSessions
