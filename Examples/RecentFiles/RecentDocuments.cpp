#include "RecentDocuments.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <system_error>
#include <utility>

#include <glib.h>

namespace RecentFiles {

namespace {

/// Far more than a real list, which has some hundred entries of some hundred bytes.
constexpr std::uintmax_t largestFile = 16 * 1024 * 1024;

template <auto function>
struct Release {
  void operator()(auto* object) const { function(object); }
};
using BookmarkFile = std::unique_ptr<GBookmarkFile, Release<&g_bookmark_file_free>>;
using Characters = std::unique_ptr<char, Release<&g_free>>;
using Strings = std::unique_ptr<char*, Release<&g_strfreev>>;
using Error = std::unique_ptr<GError, Release<&g_error_free>>;

/// A document with the time when it was last used.
struct Entry {
  std::int64_t time;
  RecentDocument document;
};

std::int64_t microseconds(GDateTime* time) {
  constexpr std::int64_t perSecond = 1'000'000;
  return time == nullptr ? 0 : g_date_time_to_unix(time) * perSecond + g_date_time_get_microsecond(time);
}

/// Programs record a use as a modification or as a visit.
std::int64_t timeOfUse(GBookmarkFile* list, const char* address) {
  return std::max(microseconds(g_bookmark_file_get_modified_date_time(list, address, nullptr)),
                  microseconds(g_bookmark_file_get_visited_date_time(list, address, nullptr)));
}

std::string text(char* characters) {
  const Characters owner(characters);
  return characters == nullptr ? "" : characters;
}

std::vector<Entry> entries(GBookmarkFile* list) {
  gsize count = 0;
  const Strings addresses(g_bookmark_file_get_uris(list, &count));
  std::vector<Entry> entries;
  for (const char* address : std::span(addresses.get(), count))
    if (g_bookmark_file_get_is_private(list, address, nullptr) == FALSE)
      entries.push_back({timeOfUse(list, address),
                         {.address = address,
                          .title = text(g_bookmark_file_get_title(list, address, nullptr)),
                          .mimeType = text(g_bookmark_file_get_mime_type(list, address, nullptr))}});
  return entries;
}

std::expected<BookmarkFile, std::string> load(const std::filesystem::path& file) {
  std::error_code failure;
  if (!std::filesystem::is_regular_file(file, failure))
    return std::unexpected("there is no file " + file.native());
  if (std::filesystem::file_size(file, failure) > largestFile)
    return std::unexpected(file.native() + " is too large");

  BookmarkFile list(g_bookmark_file_new());
  GError* error = nullptr;
  if (g_bookmark_file_load_from_file(list.get(), file.c_str(), &error) != FALSE)
    return list;
  const Error owner(error);
  return std::unexpected(file.native() + " cannot be read: " + error->message);
}

}  // namespace

std::filesystem::path recentDocumentsFile() {
  return std::filesystem::path(g_get_user_data_dir()) / "recently-used.xbel";
}

std::expected<std::vector<RecentDocument>, std::string> recentDocuments(const std::filesystem::path& file) {
  const auto list = load(file);
  if (!list)
    return std::unexpected(list.error());
  std::vector<Entry> all = entries(list->get());
  std::ranges::stable_sort(all, std::ranges::greater(), &Entry::time);

  std::vector<RecentDocument> documents;
  documents.reserve(all.size());
  for (Entry& entry : all)
    documents.push_back(std::move(entry.document));
  return documents;
}

}  // namespace RecentFiles
