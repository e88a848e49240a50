#include "UpdateCheck/Appcast.h"

#include "UpdateCheck/AppcastBuilder.h"
#include "UpdateCheck/Version.h"
#include "UpdateCheck/XMLReader.h"

namespace UpdateCheck {

namespace {

Version kernelVersion(std::string_view release) {
  return Version(release.substr(0, release.find_first_not_of("0123456789.")));
}

bool isForLinuxAlone(const AppcastItem& item) {
  return item.enclosure && item.enclosure->operatingSystem && item.enclosure->isForThisSystem();
}

bool runsHere(const AppcastItem& item, const Version& kernel) {
  if (item.enclosure && !item.enclosure->isForThisSystem())
    return false;
  return !isForLinuxAlone(item) || !item.minimumSystemVersion || Version(*item.minimumSystemVersion) <= kernel;
}

}  // namespace

std::expected<Appcast, std::string> Appcast::parse(std::string_view bytes) {
  AppcastBuilder builder;
  if (const auto read = XMLReader::read(bytes, builder); !read)
    return std::unexpected(read.error());
  if (!builder.hasChannel())
    return std::unexpected("it is not an appcast");
  return Appcast(builder.items());
}

std::optional<AppcastItem> Appcast::newestAfter(std::string_view version, std::string_view kernelRelease) const {
  const Version kernel = kernelVersion(kernelRelease);
  Version newest(version);
  std::optional<AppcastItem> found;
  for (const AppcastItem& item : items_) {
    if (!item.version || item.channel || !runsHere(item, kernel))
      continue;
    if (Version candidate(*item.version); candidate > newest) {
      newest = std::move(candidate);
      found = item;
    }
  }
  return found;
}

}  // namespace UpdateCheck
