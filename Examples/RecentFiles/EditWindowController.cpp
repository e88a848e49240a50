#include "EditWindowController.h"

#include <cstddef>

#include "Platform/Services.h"

namespace RecentFiles {

namespace {

Platform::NumberField countField(const std::shared_ptr<ActionConfigProvider>& provider) {
  return {.label = "How many",
          .value = provider->config.count,
          .minimum = fewestDocuments,
          .maximum = mostDocuments,
          .onChange = [provider](int count) {
            provider->config.count = count;
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

}  // namespace

EditWindowController::EditWindowController(const std::shared_ptr<ActionConfigProvider>& provider)
    : window_(Platform::services().windows.makeWindow(
          {.title = "Recent Files",
           .elements = {Platform::Heading{"What you used last"}, countField(provider), kindChoice(provider)}})) {}

}  // namespace RecentFiles
