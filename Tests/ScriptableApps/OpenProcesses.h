#pragma once

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ScriptableApps/SystemEvents/SystemEvents.h"

/// What System Events lists now.
inline std::vector<ScriptableApps::RunningApplication> openProcesses() {
  ScriptableApps::SystemEvents systemEvents;
  const auto root = systemEvents.open();
  if (!root) {
    ADD_FAILURE() << root.error().message;
    return {};
  }
  std::vector<ScriptableApps::RunningApplication> processes;
  for (const auto& process : static_cast<const ScriptableApps::SystemEventsRoot&>(**root).processes())
    processes.push_back(process.application());
  return processes;
}

inline std::vector<std::string> namesOfOpenProcesses() {
  std::vector<std::string> names;
  std::ranges::transform(openProcesses(), std::back_inserter(names), &ScriptableApps::RunningApplication::name);
  return names;
}
