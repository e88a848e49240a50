#include "RunController.h"

#include <vector>

#include "DeskloomSDK/Resources/Command.h"
#include "DocumentSelection.h"
#include "Platform/Services.h"
#include "RecentDocuments.h"

namespace RecentFiles {

namespace {

std::vector<RecentDocument> documents() {
  auto documents = recentDocuments(recentDocumentsFile());
  if (documents)
    return std::move(*documents);
  Platform::services().log.write("no recently used documents: " + documents.error());
  return {};
}

}  // namespace

void RunController::run(const ActionConfig& action, const PluginConfig& plugin) const {
  const auto sent = DeskloomSDK::Command(selectedResources(documents(), action, plugin)).send();
  if (!sent)
    Platform::services().alerts.runModal(Platform::Alert::withError(sent.error()));
}

}  // namespace RecentFiles
