#include "Platform/Linux/LinuxUpdater.h"

#include <cstring>
#include <string>

#include "Platform/Linux/DetachedProcess.h"

namespace Platform::Linux {

namespace {

constexpr const char* settings = "Updates";
constexpr const char* programName = "update-check";

}  // namespace

void LinuxUpdater::checkForUpdatesInBackground() {
  if (!bundle_.value(settings, "FeedURL") || bundle_.value(settings, "AutomaticChecks") == "false")
    return;
  if (const int problem = startDetached(bundle_.path() / programName))
    log_.write("the update check could not be started: " + std::string(std::strerror(problem)));
}

}  // namespace Platform::Linux
