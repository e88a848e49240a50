#include "Platform/Text/URL.h"

#include <algorithm>
#include <array>
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

/// For each byte whether the path, query and fragment may contain it; an escape begins with '%'.
constexpr auto allowedAfterAuthority = [] {
  std::array<bool, 256> allowed{};
  for (const char character : std::string_view("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"
                                               "-._~!$&'()*+,;=:@/?"))
    allowed[static_cast<unsigned char>(character)] = true;
  return allowed;
}();

bool isHexDigit(char character) {
  return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'F') ||
         (character >= 'a' && character <= 'f');
}

bool isEscape(std::string_view text) {
  return text.size() >= 3 && text[0] == '%' && isHexDigit(text[1]) && isHexDigit(text[2]);
}

/// Whether the text is a path that begins with a slash or is empty, and a query and fragment if it has them.
bool isWellFormedAfterAuthority(std::string_view text) {
  const auto isAllowed = [](char character) { return allowedAfterAuthority[static_cast<unsigned char>(character)]; };
  bool isInFragment = false;
  for (;;) {
    const auto* const other = std::ranges::find_if_not(text, isAllowed);
    if (other == text.end())
      return true;
    text = {other, text.end()};
    const bool beginsFragment = text.front() == '#' && !isInFragment;
    if (!beginsFragment && !isEscape(text))
      return false;
    isInFragment = isInFragment || beginsFragment;
    text.remove_prefix(1);
  }
}

/// Where the authority ends, for a text that has one.
std::optional<std::size_t> authorityEnd(std::string_view text) {
  const std::size_t colon = text.find_first_of(":/?#");
  const std::size_t start = colon < text.size() && text[colon] == ':' ? colon + 1 : 0;
  if (!text.substr(start).starts_with("//"))
    return std::nullopt;
  return std::min(text.find_first_of("/?#", start + 2), text.size());
}

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
  // Most of a text is after the authority, where the library takes twenty times as long to look at each character.
  const std::optional<std::size_t> authority = authorityEnd(text);
  const std::string_view beginning = std::string_view(text).substr(0, authority.value_or(text.size()));
  if (!isWellFormedAfterAuthority(std::string_view(text).substr(beginning.size())))
    return std::nullopt;
  std::size_t schemeLength = 0;
  Range host;
  {
    const ParsedText parsed(beginning);
    if (!parsed.isValid())
      return std::nullopt;
    const UriUriA& uri = parsed.uri();
    schemeLength = length(uri.scheme);
    if (uri.hostText.first != nullptr)
      host = {static_cast<std::size_t>(uri.hostText.first - text.data()), length(uri.hostText)};
  }
  const std::size_t pathStart = authority.value_or(schemeLength == 0 ? 0 : schemeLength + 1);
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
