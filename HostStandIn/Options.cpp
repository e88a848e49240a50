#include "HostStandIn/Options.h"

#include <cstdlib>
#include <utility>

#include "DesktopSupport/System/ProgramOptions.h"
#include "DesktopSupport/System/Text.h"
#include "DesktopSupport/System/UserFolders.h"

namespace HostStandIn {

namespace {

std::optional<std::size_t> positiveNumber(std::string_view text) {
  const auto number = DesktopSupport::parseNumber<std::size_t>(text);
  return number == 0 ? std::nullopt : number;
}

constexpr const char* summary =
    R"(A small host for development. Receives deskloom:// URLs on the session bus as com.quillary.Deskloom, prints each
on a line, and answers the commands that plug-ins send to the host. Configuration is kept while it runs.)";

}  // namespace

Options Options::fromEnvironment() {
  Options options;
  if (const char* log = std::getenv("DESKLOOM_HOST_LOG"); log != nullptr && *log != '\0')
    options.log = log;
  options.setup.pluginFolder = DesktopSupport::userDataFolder() / "deskloom/plugins";
  return options;
}

std::expected<Options, std::string> Options::parse(std::span<const std::string_view> arguments, Options defaults) {
  Options options = std::move(defaults);
  const auto setExitAfter = [&](std::string_view number) {
    options.exitAfter = positiveNumber(number);
    return options.exitAfter.has_value();
  };
  const auto setLog = [&](std::string_view file) {
    options.log = file;
    return !file.empty();
  };
  const auto setPluginFolder = [&](std::string_view path) {
    options.setup.pluginFolder = path;
    return !path.empty();
  };
  auto help = DesktopSupport::readOptions(
      "deskloom-host", summary,
      {{.name = "decode",
        .help = "print the resources that a URL carries as a table instead of the URL",
        .flag = &options.decode},
       {.name = "exit-after", .value = "N", .help = "exit after N URLs", .take = setExitAfter},
       {.name = "log",
        .value = "FILE",
        .help = "append each URL to FILE too, unchanged (default: $DESKLOOM_HOST_LOG, if set)",
        .take = setLog},
       {.name = "plugin-folder",
        .value = "PATH",
        .help = "say that plug-ins are in PATH (default: deskloom/plugins in the user's data folder)",
        .take = setPluginFolder},
       {.name = "installed", .help = "say that every plug-in is installed", .flag = &options.setup.isInstalled},
       {.name = "refuse-installation",
        .help = "answer requests to install a plug-in with an error",
        .flag = &options.setup.refusesInstallation},
       {.name = "version", .help = "show the version", .flag = &options.wantsVersion}},
      arguments);
  if (!help)
    return std::unexpected(help.error());
  options.help = std::move(*help);
  return options;
}

}  // namespace HostStandIn
