#include "Benchmarks/PageHistory.h"

#include <cstdio>
#include <cstdlib>

#include <sqlite3.h>

namespace Benchmarks {

namespace {

using Titles = std::map<std::string, std::string>;

int addTitle(void* titles, int /*columns*/, char** values, char** /*names*/) {
  static_cast<Titles*>(titles)->emplace(values[0], values[1]);
  return SQLITE_OK;
}

void require(bool holds, sqlite3* database) {
  if (holds)
    return;
  std::fprintf(stderr, "failed: %s\n", sqlite3_errmsg(database));
  std::exit(1);
}

}  // namespace

void PageHistory::Close::operator()(sqlite3* database) const {
  sqlite3_close_v2(database);
}

PageHistory::PageHistory(const std::filesystem::path& file, int copies) {
  sqlite3* database = nullptr;
  const int result = sqlite3_open_v2(file.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr);
  database_.reset(database);
  require(result == SQLITE_OK, database);
  run("BEGIN; CREATE TEMP TABLE visited AS SELECT * FROM urls");
  for (int copy = 1; copy <= copies; ++copy)
    run("INSERT INTO urls (url, title, visit_count, typed_count, last_visit_time, hidden) SELECT url || '#" +
        std::to_string(copy) + "', title, visit_count, typed_count, last_visit_time, hidden FROM visited");
  run("COMMIT");
}

Titles PageHistory::titles() const {
  Titles titles;
  const int result = sqlite3_exec(database_.get(), "SELECT url, title FROM urls", addTitle, &titles, nullptr);
  require(result == SQLITE_OK, database_.get());
  return titles;
}

void PageHistory::run(const std::string& statement) const {
  require(sqlite3_exec(database_.get(), statement.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK, database_.get());
}

}  // namespace Benchmarks
