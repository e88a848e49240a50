#include "DocumentSelection.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "FileKind.h"
#include "Platform/Text/UTF8.h"

namespace RecentFiles {

using DeskloomSDK::Resource;
using DeskloomSDK::ResourceType;
using Platform::URL;

namespace {

/// The path that a URL names on this machine; `nullopt` if it is not a file URL or names a file of another machine.
std::optional<std::filesystem::path> localPath(const URL& url) {
  if (url.scheme() != "file" || url.host().value_or("localhost") != "localhost")
    return std::nullopt;
  std::filesystem::path path;
  for (const std::string& component : url.pathComponents())
    path /= component;
  return path;
}

bool isMissing(const Resource& resource) {
  std::error_code failure;
  const auto path = localPath(resource.url());
  return path && !std::filesystem::exists(*path, failure);
}

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

/// The name of the file at a URL; `nullopt` if it is not a local file or its name is not valid UTF-8.
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

/// The document as a resource; `nullopt` if its address is not a URL.
std::optional<Resource> makeResource(const RecentDocument& document) {
  const auto url = URL::parse(document.address);
  if (!url || !url->scheme())
    return std::nullopt;
  return Resource(typeOf(*url, document), nameOf(*url, document), *url);
}

}  // namespace

std::vector<Resource> selectedResources(const std::vector<RecentDocument>& documents, const ActionConfig& action,
                                        const PluginConfig& plugin) {
  const auto wanted = static_cast<std::size_t>(std::clamp(action.count, fewestDocuments, mostDocuments));
  std::vector<Resource> resources;
  for (const RecentDocument& document : documents) {
    if (resources.size() == wanted)
      break;
    if (!contains(action.kind, document.mimeType))
      continue;
    auto resource = makeResource(document);
    if (resource && !(plugin.leavesOutMissingFiles && isMissing(*resource)))
      resources.push_back(std::move(*resource));
  }
  return resources;
}

}  // namespace RecentFiles
