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
  /// Parses a URL. `nullopt` if the text is not one to the letter of RFC 3986, such as the empty text, or a text with a
  /// space, a bare '|', a bare non-ASCII letter or a broken percent-escape.
  static std::optional<URL> parse(std::string text);

  /// The file URL of a path (fileURLWithPath:). A relative path is resolved against the working directory. Bytes that a
  /// URL's path may not contain are percent-encoded. The URL ends with a slash if the path is a directory on disk.
  static URL fileURL(const std::filesystem::path& path);

  /// The scheme as written, without its colon; `nullopt` in a relative reference.
  [[nodiscard]] std::optional<std::string_view> scheme() const;

  /// The host with its percent-escapes decoded and its case kept; `nullopt` if there is none or it is empty.
  [[nodiscard]] std::optional<std::string> host() const;

  /// The path's components with their percent-escapes decoded. A leading slash is a component of its own, so /ID has
  /// two components. Empty components and a trailing slash are left out.
  [[nodiscard]] std::vector<std::string> pathComponents() const;

  /// The whole text, as written.
  [[nodiscard]] const std::string& absoluteString() const& { return text_; }
  /// The same, moved out of a URL that is not needed any more.
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
