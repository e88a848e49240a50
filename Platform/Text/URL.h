#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Platform {

/// A URL or relative reference as RFC 3986 has it (NSURL). The text is kept exactly as it was written.
class URL {
 public:
  /// The URL that `text` spells. None where it is not one to the letter of RFC 3986: the empty text, a space, a bare
  /// '|', a bare non-ASCII letter, a broken percent-escape.
  static std::optional<URL> parse(std::string text);

  /// The file URL of a path (fileURLWithPath:). A relative path is taken from the working directory; what may not stand
  /// in a URL's path is percent-encoded, byte by byte; the URL ends with a slash where the path is a directory on disk.
  static URL fileURL(const std::filesystem::path& path);

  /// The scheme as written, without its colon; none in a relative reference.
  [[nodiscard]] std::optional<std::string_view> scheme() const;

  /// The host with its percent-escapes decoded, its case kept; none where there is no host or an empty one.
  [[nodiscard]] std::optional<std::string> host() const;

  /// The path's components with their percent-escapes decoded. A leading slash is a component of its own, so /ID lists
  /// as two; empty components and a trailing slash are none.
  [[nodiscard]] std::vector<std::string> pathComponents() const;

  /// The whole text, as written.
  [[nodiscard]] const std::string& absoluteString() const& { return text_; }
  /// The same, taken out of a URL that is not needed any more.
  [[nodiscard]] std::string absoluteString() && { return std::move(text_); }

 private:
  struct Range {
    std::size_t start = 0;
    std::size_t length = 0;
  };

  URL(std::string text, Range host, Range path, std::size_t schemeLength);
  [[nodiscard]] std::string_view slice(Range range) const;

  std::string text_;
  Range host_;
  Range path_;
  std::size_t schemeLength_;
};

}  // namespace Platform
