#include "Linux/Launching/LaunchArguments.h"

namespace Linux {

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

}  // namespace Linux
