// Runs one scenario on the current desktop and prints what it measured. script/soak gives each a private desktop.

#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <string_view>

#include "DesktopSupport/System/Text.h"
#include "Soak/Host.h"
#include "Soak/Scenarios.h"

namespace {

using Soak::Settings;

const std::map<std::string_view, Soak::Report (*)(const Settings&)> scenarios = {
    {"launches", Soak::launches}, {"restarts", Soak::restarts}, {"limits", Soak::limits},
    {"mount", Soak::mount},       {"stopped", Soak::stopped},   {"payloads", Soak::payloads}};

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount == 2 && std::strcmp(arguments[1], Soak::hostOption) == 0)
    return Soak::beHost();
  const auto scenario = argumentCount < 2 ? scenarios.end() : scenarios.find(arguments[1]);
  if (scenario == scenarios.end() || argumentCount > 3) {
    std::fprintf(stderr, "Usage: %s SCENARIO [LAUNCHES]\n", arguments[0]);
    return 2;
  }
  Settings settings;
  if (argumentCount == 3)
    settings.launches = DesktopSupport::parseNumber<int>(arguments[2]).value_or(0);
  const Soak::Report report = scenario->second(settings);
  std::printf("%s: %s\n", arguments[1], report.line().c_str());
  return report.holds() ? 0 : 1;
}
