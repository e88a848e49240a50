#include "BrowserSessions/Firefox/MozillaLZ4.h"

#include <cstdint>

#include "BrowserSessions/BrowserFiles.h"

namespace BrowserSessions {

namespace {

constexpr std::string_view magic("mozLz40\0", 8);
constexpr std::size_t sizeLength = 4;
constexpr std::size_t maximumContentsSize = 128 << 20;
// No byte of an LZ4 block yields more bytes than this.
constexpr std::size_t highestRatio = 255;

}  // namespace

std::expected<std::string, std::string> mozillaLZ4Contents(std::string_view file, decltype(LZ4Library::load) load) {
  if (!file.starts_with(magic) || file.size() < magic.size() + sizeLength)
    return std::unexpected("It does not begin as Firefox's compressed files do.");
  const std::size_t size = littleEndian<std::uint32_t>(file.substr(magic.size()));
  const std::string_view block = file.substr(magic.size() + sizeLength);
  if (size == 0)
    return "";
  if (size > maximumContentsSize || block.size() > maximumContentsSize || size / highestRatio > block.size())
    return std::unexpected("It cannot hold the " + std::to_string(size) + " bytes that it claims.");
  const auto& library = load();
  if (!library)
    return std::unexpected(library.error());
  std::string contents(size, '\0');
  const int written =
      library->decompressSafe(block.data(), contents.data(), static_cast<int>(block.size()), static_cast<int>(size));
  if (written < 0 || static_cast<std::size_t>(written) != size)
    return std::unexpected("Its compressed contents are damaged.");
  return contents;
}

}  // namespace BrowserSessions
