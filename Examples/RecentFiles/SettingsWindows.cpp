#include "SettingsWindows.h"

#include <cstddef>
#include <string>
#include <utility>

#include "Platform/Services.h"

namespace RecentFiles {

namespace {

/// A field for the number of documents. `Provider` is a configuration provider, `count` a member of its value.
template <typename Provider, typename Config>
Platform::NumberField countField(std::string label, const std::shared_ptr<Provider>& provider, int Config::* count) {
  return {.label = std::move(label),
          .value = provider->config.*count,
          .minimum = fewestDocuments,
          .maximum = mostDocuments,
          .onChange = [provider, count](int number) {
            provider->config.*count = number;
            provider->save();
          }};
}

Platform::Choice kindChoice(const std::shared_ptr<ActionConfigProvider>& provider) {
  return {.label = "What",
          .options = fileKindNames(),
          .selected = static_cast<std::size_t>(provider->config.kind),
          .onChange = [provider](std::size_t index) {
            provider->config.kind = static_cast<FileKind>(index);
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

std::unique_ptr<Platform::Window> makeEditWindow(const std::shared_ptr<ActionConfigProvider>& provider) {
  return Platform::services().windows.makeWindow(
      {.title = "Recent Files",
       .elements = {Platform::Heading{"What you used last"}, countField("How many", provider, &ActionConfig::count),
                    kindChoice(provider)}});
}

std::unique_ptr<Platform::Window> makeConfigureWindow(const std::shared_ptr<PluginConfigProvider>& provider) {
  return Platform::services().windows.makeWindow(
      {.title = "Recent Files Settings",
       .elements = {Platform::Heading{"Recent Files"},
                    countField("How many documents a new action sends", provider, &PluginConfig::countOfNewActions),
                    missingFilesChoice(provider)}});
}

}  // namespace RecentFiles
