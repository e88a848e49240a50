#include "Platform/Text/URL.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include <uriparser/Uri.h>

#include "Platform/Text/PercentEncoding.h"

namespace Platform {

namespace {

/// A text that the library has found to be well-formed, taken apart; the parts point into the text.
class ParsedText {
 public:
  explicit ParsedText(std::string_view text)
      : valid_(uriParseSingleUriExA(&uri_, text.data(), text.data() + text.size(), nullptr) == URI_SUCCESS) {}
  ParsedText(const ParsedText&) = delete;
  ParsedText& operator=(const ParsedText&) = delete;
  ~ParsedText() {
    if (valid_)
      uriFreeUriMembersA(&uri_);
  }

  [[nodiscard]] bool isValid() const { return valid_; }
  [[nodiscard]] const UriUriA& uri() const { return uri_; }

 private:
  UriUriA uri_ = {};
  bool valid_;
};

std::size_t length(const UriTextRangeA& range) {
  return range.first == nullptr ? 0 : static_cast<std::size_t>(range.afterLast - range.first);
}

bool isDirectory(const std::filesystem::path& path) {
  std::error_code ignored;
  return std::filesystem::is_directory(path, ignored);
}

std::filesystem::path absolutePath(const std::filesystem::path& path) {
  std::error_code failure;
  auto absolute = std::filesystem::absolute(path.empty() ? "." : path, failure);
  return failure ? path : absolute;
}

}  // namespace

URL::URL(std::string text, Range host, Range path, std::size_t schemeLength)
    : text_(std::move(text)), host_(host), path_(path), schemeLength_(schemeLength) {}

std::optional<URL> URL::parse(std::string text) {
  if (text.empty())
    return std::nullopt;
  std::size_t schemeLength = 0;
  Range host;
  {
    const ParsedText parsed(text);
    if (!parsed.isValid())
      return std::nullopt;
    const UriUriA& uri = parsed.uri();
    schemeLength = length(uri.scheme);
    if (uri.hostText.first != nullptr)
      host = {static_cast<std::size_t>(uri.hostText.first - text.data()), length(uri.hostText)};
  }

  // In a well-formed text, the authority after "//" ends at the path, and the path ends at the query or the fragment.
  std::size_t pathStart = schemeLength == 0 ? 0 : schemeLength + 1;
  if (std::string_view(text).substr(pathStart).starts_with("//"))
    pathStart = std::min(text.find_first_of("/?#", pathStart + 2), text.size());
  const std::size_t pathEnd = std::min({text.find('?', pathStart), text.find('#', pathStart), text.size()});
  return URL(std::move(text), host, {pathStart, pathEnd - pathStart}, schemeLength);
}

URL URL::fileURL(const std::filesystem::path& path) {
  const auto absolute = absolutePath(path);
  std::string text = "file://" + percentEncodedPath(absolute.native());
  if (!text.ends_with('/') && isDirectory(absolute))
    text += '/';
  const Range pathRange = {std::string_view("file://").size(), text.size() - std::string_view("file://").size()};
  return URL(std::move(text), {}, pathRange, std::string_view("file").size());
}

std::string_view URL::slice(Range range) const {
  return std::string_view(text_).substr(range.start, range.length);
}

std::optional<std::string_view> URL::scheme() const {
  if (schemeLength_ == 0)
    return std::nullopt;
  return slice({0, schemeLength_});
}

std::optional<std::string> URL::host() const {
  if (host_.length == 0)
    return std::nullopt;
  return percentDecoded(slice(host_));
}

std::vector<std::string> URL::pathComponents() const {
  std::vector<std::string> components;
  std::string_view rest = slice(path_);
  if (rest.starts_with('/'))
    components.emplace_back("/");
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('/'), rest.size());
    if (end > 0)
      components.push_back(percentDecoded(rest.substr(0, end)));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return components;
}

}  // namespace Platform
