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
  if (!bundle_.value(settings, "FeedURL"))
    return;
  const std::string automaticChecks = bundle_.value(settings, "AutomaticChecks").value_or("true");
  if (automaticChecks == "false")
    return;
  if (automaticChecks != "true")
    return log_.write("could not check for an update: AutomaticChecks is neither true nor false");
  if (const auto started = startDetached(bundle_.path() / programName); !started)
    log_.write("the update check could not be started: " + std::string(std::strerror(started.error())));
}

}  // namespace Linux
