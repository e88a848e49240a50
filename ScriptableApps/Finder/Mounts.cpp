#include "ScriptableApps/Finder/Mounts.h"

#include <string>
#include <string_view>

#include <sys/sysmacros.h>

#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/Text.h"

namespace ScriptableApps {

namespace {

constexpr std::size_t maximumSize = 4 << 20;

// Spaces, tabs, line feeds and backslashes are written as a backslash and three octal digits.
std::string decoded(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    const auto code = text.starts_with('\\') && text.size() > 3
                          ? DesktopSupport::parseNumber<unsigned char>(text.substr(1, 3), 8)
                          : std::nullopt;
    plain += code ? static_cast<char>(*code) : text.front();
    text.remove_prefix(code ? 4 : 1);
  }
  return plain;
}

}  // namespace

Mounts::Mounts(const std::filesystem::path& list) {
  const auto contents = DesktopSupport::fileContents(list, maximumSize).value_or("");
  for (const std::string_view line : DesktopSupport::separated(contents, '\n')) {
    const auto fields = DesktopSupport::separated(line, ' ');
    if (fields.size() < 5)
      continue;
    const auto numbers = DesktopSupport::separated(fields[2], ':');
    const auto majorNumber = DesktopSupport::parseNumber<unsigned>(numbers.empty() ? "" : numbers.front());
    const auto minorNumber = DesktopSupport::parseNumber<unsigned>(numbers.empty() ? "" : numbers.back());
    if (majorNumber && minorNumber)
      devices_[decoded(fields[4])] = makedev(*majorNumber, *minorNumber);
  }
}

dev_t Mounts::deviceOf(std::filesystem::path path) const {
  while (true) {
    if (const auto mount = devices_.find(path); mount != devices_.end())
      return mount->second;
    if (path == path.parent_path())
      return 0;
    path = path.parent_path();
  }
}

}  // namespace ScriptableApps
