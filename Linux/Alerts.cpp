#include "Linux/Alerts.h"

#include <utility>

#include <glib.h>

#include "DesktopSupport/System/DisplayableText.h"

namespace Linux {

void Alerts::runModal(const Platform::Alert& alert) {
  if (shown_ != nullptr)  // asked for by what the main context has brought while the user reads the one before
    awaitDismissal(*shown_);
  if (application_.isTerminating())
    return tell(alert, "the application is terminating");
  const auto toolkit = module_.toolkit();
  if (!toolkit)
    return tell(alert, toolkit.error());

  Platform::Alert complete = alert;
  if (complete.buttons.empty())
    complete.buttons.push_back(strings_.localized("OK", "OK button"));
  const auto panel = (*toolkit)->showAlert(complete);
  const AlertPanel* below = std::exchange(shown_, panel.get());
  awaitDismissal(*panel);
  shown_ = below;
}

void Alerts::awaitDismissal(const AlertPanel& panel) const {
  while (!panel.isDismissed() && !application_.isTerminating())
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
}

void Alerts::tell(const Platform::Alert& alert, const std::string& reason) {
  // The texts may be of somebody else, such as the host.
  log_.write(DesktopSupport::printable(alert.messageText));
  if (!alert.informativeText.empty())
    log_.write(DesktopSupport::printable(alert.informativeText));
  log_.write("the alert could not be shown: " + reason);
}

}  // namespace Linux
