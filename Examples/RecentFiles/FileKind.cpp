#include "FileKind.h"

#include <algorithm>
#include <array>

namespace RecentFiles {

namespace {

/// The beginnings of the MIME types of documents: texts, books, and the formats of office programs.
constexpr std::array<std::string_view, 11> documentTypes = {"text/",
                                                            "application/pdf",
                                                            "application/rtf",
                                                            "application/postscript",
                                                            "application/epub",
                                                            "application/json",
                                                            "application/xml",
                                                            "application/msword",
                                                            "application/vnd.ms-",
                                                            "application/vnd.oasis.opendocument.",
                                                            "application/vnd.openxmlformats-officedocument."};

bool isDocument(std::string_view mimeType) {
  return std::ranges::any_of(documentTypes, [&](auto beginning) { return mimeType.starts_with(beginning); });
}

}  // namespace

std::vector<std::string> fileKindNames() {
  return {"Everything", "Documents", "Images", "Music and video", "Folders"};
}

bool contains(FileKind kind, std::string_view mimeType) {
  switch (kind) {
    case FileKind::all:
      return true;
    case FileKind::documents:
      return isDocument(mimeType);
    case FileKind::images:
      return mimeType.starts_with("image/");
    case FileKind::media:
      return mimeType.starts_with("audio/") || mimeType.starts_with("video/");
    case FileKind::folders:
      return mimeType == "inode/directory";
  }
  return false;
}

}  // namespace RecentFiles
