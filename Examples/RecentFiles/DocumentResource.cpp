#include "DocumentResource.h"

#include <string>
#include <system_error>
#include <vector>

#include "FileKind.h"
#include "Platform/Text/UTF8.h"

namespace RecentFiles {

using DeskloomSDK::Resource;
using DeskloomSDK::ResourceType;
using Platform::URL;

namespace {

ResourceType fileType(const std::filesystem::path& path, const RecentDocument& document) {
  std::error_code missing;
  const bool isFolder = contains(FileKind::folders, document.mimeType) || std::filesystem::is_directory(path, missing);
  return isFolder ? ResourceType::folder : ResourceType::file;
}

ResourceType typeOf(const URL& url, const RecentDocument& document) {
  if (const auto path = localPath(url))
    return fileType(*path, document);
  const bool isWebsite = url.scheme() == "http" || url.scheme() == "https";
  return isWebsite ? ResourceType::website : ResourceType::url;
}

/// The file's name, where it has one that the user can read.
std::optional<std::string> fileName(const URL& url) {
  const auto components = url.pathComponents();
  if (!localPath(url) || components.empty())
    return std::nullopt;
  return Platform::stringFromUTF8(components.back());
}

std::string nameOf(const URL& url, const RecentDocument& document) {
  if (!document.title.empty())
    return document.title;
  return fileName(url).value_or(document.address);
}

}  // namespace

std::optional<std::filesystem::path> localPath(const URL& url) {
  if (url.scheme() != "file" || url.host().value_or("localhost") != "localhost")
    return std::nullopt;
  std::filesystem::path path;
  for (const std::string& component : url.pathComponents())
    path /= component;
  return path;
}

std::optional<Resource> makeResource(const RecentDocument& document) {
  const auto url = URL::parse(document.address);
  if (!url || !url->scheme())
    return std::nullopt;
  return Resource(typeOf(*url, document), nameOf(*url, document), *url);
}

}  // namespace RecentFiles
