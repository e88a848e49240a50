#include "ConfigureWindowController.h"

#include <cstddef>

#include "Platform/Services.h"

namespace RecentFiles {

namespace {

Platform::NumberField countField(const std::shared_ptr<PluginConfigProvider>& provider) {
  return {.label = "How many documents a new action sends",
          .value = provider->config.countOfNewActions,
          .minimum = fewestDocuments,
          .maximum = mostDocuments,
          .onChange = [provider](int count) {
            provider->config.countOfNewActions = count;
            provider->save();
          }};
}

Platform::Choice missingFilesChoice(const std::shared_ptr<PluginConfigProvider>& provider) {
  constexpr std::size_t leaveOut = 0;
  constexpr std::size_t send = 1;
  return {.label = "Files that are gone",
          .options = {"Leave out", "Send"},
          .selected = provider->config.leavesOutMissingFiles ? leaveOut : send,
          .onChange = [provider](std::size_t index) {
            provider->config.leavesOutMissingFiles = index == leaveOut;
            provider->save();
          }};
}

}  // namespace

ConfigureWindowController::ConfigureWindowController(const std::shared_ptr<PluginConfigProvider>& provider)
    : window_(Platform::services().windows.makeWindow(
          {.title = "Recent Files Settings",
           .elements = {Platform::Heading{"Recent Files"}, countField(provider), missingFilesChoice(provider)}})) {}

}  // namespace RecentFiles
