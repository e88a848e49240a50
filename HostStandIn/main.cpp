#include <expected>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "DesktopSupport/System/DisplayableText.h"
#include "HostStandIn/Host.h"
#include "HostStandIn/Options.h"

namespace {

int fail(const std::string& message, int status) {
  std::cerr << "deskloom-host: " << DesktopSupport::printable(message) << '\n';
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string_view> arguments(argv + 1, argv + argc);
  const auto options = HostStandIn::Options::parse(arguments, HostStandIn::Options::fromEnvironment());
  if (!options)
    return fail(options.error() + " (see --help)", 2);
  if (options->help || options->wantsVersion) {
    std::cout << options->help.value_or("deskloom-host " DESKLOOM_VERSION "\n");
    return 0;
  }

  const auto host = HostStandIn::Host::create(*options);
  if (!host)
    return fail(host.error(), 1);
  const auto served = (*host)->run();
  return served ? 0 : fail(served.error(), 1);
}
