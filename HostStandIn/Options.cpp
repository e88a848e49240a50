#include "HostStandIn/Options.h"

#include <cstdlib>
#include <utility>

#include "DesktopSupport/System/Text.h"
#include "DesktopSupport/System/UserFolders.h"

namespace HostStandIn {

namespace {

using Failure = std::optional<std::string>;

std::optional<std::size_t> positiveNumber(std::string_view text) {
  const auto number = DesktopSupport::parseNumber<std::size_t>(text);
  return number == 0 ? std::nullopt : number;
}

/// Takes an option without a value; false where there is no such option.
bool takeFlag(Options& options, std::string_view name) {
  if (name == "--help")
    options.wantsHelp = true;
  else if (name == "--version")
    options.wantsVersion = true;
  else if (name == "--decode")
    options.decode = true;
  else if (name == "--installed")
    options.setup.isInstalled = true;
  else if (name == "--refuse-installation")
    options.setup.refusesInstallation = true;
  else
    return false;
  return true;
}

bool takesValue(std::string_view name) {
  return name == "--exit-after" || name == "--log" || name == "--plugin-folder";
}

Failure takeValue(Options& options, std::string_view name, std::string_view value) {
  if (value.empty())
    return std::string(name) + " needs a value";
  if (name == "--log")
    options.log = value;
  else if (name == "--plugin-folder")
    options.setup.pluginFolder = value;
  else if (options.exitAfter = positiveNumber(value); !options.exitAfter)
    return "--exit-after needs a number from 1 on";
  return std::nullopt;
}

}  // namespace

const std::string_view Options::help = R"(Usage: deskloom-host [OPTION]...

A small host for development: receives deskloom:// URLs on the session bus as com.quillary.Deskloom, prints each as one
line, and answers the commands that plug-ins send to the host. Configuration is kept for as long as it runs.

  --decode               print the resources that a URL carries as a table in place of the URL
  --exit-after N         leave once N URLs have been received
  --log FILE             append each URL to FILE as well, unaltered (default: $DESKLOOM_HOST_LOG, if set)
  --plugin-folder PATH   say that plug-ins are kept in PATH (default: deskloom/plugins in the user's data folder)
  --installed            say of every plug-in that it is installed
  --refuse-installation  answer a request to install a plug-in with an error
  --help                 show this text
  --version              show the version
)";

Options Options::fromEnvironment() {
  Options options;
  if (const char* log = std::getenv("DESKLOOM_HOST_LOG"); log != nullptr && *log != '\0')
    options.log = log;
  options.setup.pluginFolder = DesktopSupport::userDataFolder() / "deskloom/plugins";
  return options;
}

std::expected<Options, std::string> Options::parse(std::span<const std::string_view> arguments, Options defaults) {
  Options options = std::move(defaults);
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
    if (takeFlag(options, *argument))
      continue;
    const std::string_view name = *argument;
    if (!takesValue(name))
      return std::unexpected("unknown argument: " + std::string(name));
    const bool hasValue = argument + 1 != arguments.end();
    if (const auto failure = takeValue(options, name, hasValue ? *++argument : std::string_view()))
      return std::unexpected(*failure);
  }
  return options;
}

}  // namespace HostStandIn
