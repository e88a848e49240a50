#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>

struct sqlite3;

namespace Benchmarks {

/// The database of visited pages in a Chromium profile. Errors end the program.
class PageHistory {
 public:
  /// Opens the file and copies its pages. Copy N of a page has "#N" after its address and is otherwise the same.
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
