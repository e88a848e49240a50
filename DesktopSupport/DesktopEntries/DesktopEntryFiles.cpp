#include "DesktopSupport/DesktopEntries/DesktopEntryFiles.h"

#include <algorithm>
#include <set>
#include <system_error>

#include "DesktopSupport/System/DisplayableText.h"

namespace DesktopSupport {

namespace {

using std::filesystem::path;

class Walk {
 public:
  explicit Walk(path root) : root_(std::move(root)) { visit(root_); }

  std::vector<DesktopEntryFile> files;

 private:
  void visit(const path& folder) {
    std::error_code error;
    const path real = std::filesystem::canonical(folder, error);
    if (error || !visited_.insert(real).second)
      return;
    for (const auto& item : sortedItems(folder))
      if (item.path().extension() == ".desktop" && !item.is_directory(error))
        add(item.path());
      else if (item.is_directory(error))
        visit(item.path());
  }

  static std::vector<std::filesystem::directory_entry> sortedItems(const path& folder) {
    std::vector<std::filesystem::directory_entry> items;
    std::error_code error;
    for (std::filesystem::directory_iterator item(folder, error); !error && item != end(item); item.increment(error))
      items.push_back(*item);
    std::ranges::sort(items);
    return items;
  }

  void add(const path& file) {
    if (isDisplayable(file.string()))
      files.push_back({.file = file, .id = desktopFileId(file, root_)});
  }

  path root_;
  std::set<path> visited_;
};

}  // namespace

std::vector<DesktopEntryFile> desktopEntryFiles(const path& folder) {
  return Walk(folder).files;
}

std::string desktopFileId(const path& file, const path& folder) {
  std::string id = file.lexically_relative(folder).replace_extension();
  std::ranges::replace(id, '/', '-');
  return id;
}

}  // namespace DesktopSupport
