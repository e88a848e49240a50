#pragma once

#include <string>

namespace RecentFiles {

/// One entry of the desktop's list of recently used documents, as it stands there.
struct RecentDocument {
  /// Where it is: the text of a URL, which nobody has checked.
  std::string address;
  /// What the program that used it calls it; mostly empty.
  std::string title = {};
  std::string mimeType = {};
};

}  // namespace RecentFiles
