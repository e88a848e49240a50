#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>

struct sqlite3;

namespace Benchmarks {

/// The database of a Chromium profile that tells which pages were visited. Whatever fails ends the program.
class PageHistory {
 public:
  /// Opens the file and makes copies of its pages: copy N of a page has "#N" behind the address, and all else the same.
  PageHistory(const std::filesystem::path& file, int copies);

  /// The titles of all pages, by address.
  [[nodiscard]] std::map<std::string, std::string> titles() const;

 private:
  struct Close {
    void operator()(sqlite3* database) const;
  };

  void run(const std::string& statement) const;

  std::unique_ptr<sqlite3, Close> database_;
};

}  // namespace Benchmarks
