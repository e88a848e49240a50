#include "Linux/Updater.h"

#include <cstring>
#include <string>

#include "Linux/Launching/DetachedProcess.h"

namespace Linux {

namespace {

constexpr const char* settings = "Updates";
constexpr const char* programName = "update-check";

}  // namespace

void Updater::checkForUpdatesInBackground() {
  if (!bundle_.value(settings, "FeedURL") || bundle_.value(settings, "AutomaticChecks") == "false")
    return;
  const auto started = startDetached(bundle_.path() / programName);
  if (!started)
    log_.write("the update check could not be started: " + std::string(std::strerror(started.error())));
}

}  // namespace Linux
