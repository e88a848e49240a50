#include <chrono>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include <sys/utsname.h>

#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/UserFolders.h"
#include "Linux/LinuxBundle.h"
#include "Linux/LinuxLog.h"
#include "Linux/LinuxStrings.h"
#include "UpdateCheck/UpdateChecker.h"
#include "UpdateCheck/UpdateSettings.h"

namespace {

constexpr const char* help =
    "Usage: update-check\n"
    "\n"
    "Looks for an update of the plug-in in whose bundle it lies, as the bundle's Info.ini says, and tells the user.\n"
    "Whatever goes wrong is in the log.\n"
    "\n"
    "  --help     show this text\n"
    "  --version  show the version\n";

std::string kernelRelease() {
  utsname facts = {};
  return uname(&facts) == 0 ? facts.release : "";
}

void checkForUpdate() {
  constexpr std::size_t longestInformation = 64UL * 1024;
  Platform::Linux::LinuxLog log;
  const Platform::Linux::LinuxBundle bundle;
  const auto information = DesktopSupport::fileContents(bundle.path() / "Info.ini", longestInformation);
  const auto parsed = UpdateCheck::UpdateSettings::parse(information.value_or(""));
  if (!parsed)
    return log.write("could not check for an update: " + parsed.error());
  const std::optional<UpdateCheck::UpdateSettings>& settings = *parsed;
  if (!settings)
    return;
  const Platform::Linux::LinuxStrings strings(bundle);
  const UpdateCheck::UpdateChecker::Surroundings surroundings = {
      .stateFolder = DesktopSupport::userStateFolder() / "deskloom",
      .now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now()),
      .kernelRelease = kernelRelease(),
      .strings = strings,
      .log = log};
  UpdateCheck::UpdateChecker(*settings, surroundings).run();
}

int answer(std::string_view option) {
  if (option == "--help")
    std::fputs(help, stdout);
  else if (option == "--version")
    std::puts("update-check " DESKLOOM_VERSION);
  else
    return 2;
  return 0;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount == 1) {
    checkForUpdate();
    return 0;
  }
  const int status = argumentCount == 2 ? answer(arguments[1]) : 2;
  if (status != 0)
    std::fputs("update-check: it takes no such arguments (see --help)\n", stderr);
  return status;
}
