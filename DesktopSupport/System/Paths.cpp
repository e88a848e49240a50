#include "DesktopSupport/System/Paths.h"

#include <algorithm>

namespace DesktopSupport {

bool isInside(const std::filesystem::path& file, const std::filesystem::path& folder) {
  return std::ranges::mismatch(folder, file).in1 == folder.end();
}

}  // namespace DesktopSupport
