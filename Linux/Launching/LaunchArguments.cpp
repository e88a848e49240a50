#include "Linux/Launching/LaunchArguments.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <string_view>

#include <unistd.h>

namespace Linux {

namespace {

constexpr std::size_t mostBytes = 256UL << 20;

std::vector<std::string> separated(std::string_view bytes) {
  std::vector<std::string> launchURLs;
  while (!bytes.empty()) {
    const std::string_view url = bytes.substr(0, bytes.find('\0'));
    launchURLs.emplace_back(url);
    bytes.remove_prefix(std::min(url.size() + 1, bytes.size()));
  }
  return launchURLs;
}

}  // namespace

std::expected<LaunchArguments, std::string> LaunchArguments::parse(const std::vector<std::string>& arguments) {
  LaunchArguments parsed;
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
    if (*argument == "--") {
      parsed.launchURLs.insert(parsed.launchURLs.end(), argument + 1, arguments.end());
      break;
    }
    if (!argument->starts_with('-'))
      parsed.launchURLs.push_back(*argument);
    else if (*argument == "--help")
      parsed.help = true;
    else if (*argument == "--version")
      parsed.version = true;
    else if (*argument == "--dbus-activated")
      parsed.activatedByBus = true;
    else if (*argument == "--read-launch-urls")
      parsed.readsLaunchURLs = true;
    else
      return std::unexpected("unknown option " + *argument);
  }
  return parsed;
}

std::expected<void, int> writeLaunchURLs(int file, const std::vector<std::string>& launchURLs) {
  for (const std::string& url : launchURLs) {
    std::string_view rest(url.c_str(), url.size() + 1);
    while (!rest.empty()) {
      const ssize_t written = write(file, rest.data(), rest.size());
      if (written < 0 && errno != EINTR)
        return std::unexpected(errno);
      if (written > 0)
        rest.remove_prefix(static_cast<std::size_t>(written));
    }
  }
  return {};
}

std::expected<std::vector<std::string>, int> readLaunchURLs(int file) {
  std::string bytes;
  std::array<char, 16384> piece = {};
  while (const ssize_t received = read(file, piece.data(), piece.size())) {
    if (received < 0 && errno == EINTR)
      continue;
    if (received < 0)
      return std::unexpected(errno);
    if (bytes.size() + static_cast<std::size_t>(received) > mostBytes)
      return std::unexpected(EFBIG);
    bytes.append(piece.data(), static_cast<std::size_t>(received));
  }
  return separated(bytes);
}

}  // namespace Linux
