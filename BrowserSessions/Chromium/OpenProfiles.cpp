#include "BrowserSessions/Chromium/OpenProfiles.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string>
#include <system_error>

#include "DesktopSupport/System/FileContents.h"

namespace BrowserSessions {

namespace {

using nlohmann::json;
using std::filesystem::path;

constexpr std::size_t maximumStateSize = 4 << 20;
constexpr std::size_t maximumProfiles = 64;

// Lets the parser keep nothing but the two entries that are asked for, as the rest is long.
bool isWanted(int depth, json::parse_event_t event, const json& parsed) {
  if (event == json::parse_event_t::key && depth == 1)
    return parsed == "profile";
  if (event == json::parse_event_t::key && depth == 2)
    return parsed == "last_active_profiles" || parsed == "last_used";
  const bool isStart = event == json::parse_event_t::object_start || event == json::parse_event_t::array_start;
  return !isStart || depth <= 2;
}

json entry(const json& object, const char* key) {
  return object.is_object() && object.contains(key) ? object[key] : json();
}

bool isFolderName(const std::string& name) {
  return !name.empty() && name != "." && name != ".." && name.find_first_of(std::string("/\0", 2)) == std::string::npos;
}

void add(std::vector<std::string>& names, const json& name) {
  const auto* text = name.get_ptr<const std::string*>();
  if (text != nullptr && isFolderName(*text) && std::ranges::find(names, *text) == names.end() &&
      names.size() < maximumProfiles)
    names.push_back(*text);
}

std::vector<std::string> openProfileNames(const path& userData) {
  const std::string text = DesktopSupport::fileContents(userData / "Local State", maximumStateSize).value_or("");
  const json profile = entry(json::parse(text, isWanted, /*allow_exceptions=*/false), "profile");
  const json lastUsed = entry(profile, "last_used");
  std::vector<std::string> names;
  if (const json list = entry(profile, "last_active_profiles"); list.is_array())
    for (const json& name : list)
      add(names, name);
  if (names.empty())
    add(names, lastUsed);
  if (names.empty())
    names.emplace_back("Default");
  const auto front = std::ranges::find_if(names, [&](const std::string& name) { return lastUsed == name; });
  if (front != names.end())
    std::rotate(names.begin(), front, std::next(front));
  return names;
}

bool isFolder(const path& file) {
  std::error_code error;
  return std::filesystem::is_directory(file, error);
}

}  // namespace

std::vector<path> openChromiumProfiles(const path& userData) {
  std::vector<path> profiles;
  for (const std::string& name : openProfileNames(userData))
    if (isFolder(userData / name))
      profiles.push_back(userData / name);
  if (profiles.empty() && isFolder(userData))
    profiles.push_back(userData);
  return profiles;
}

}  // namespace BrowserSessions
