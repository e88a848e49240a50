#pragma once

#include <nlohmann/json.hpp>

#include "FileKind.h"

namespace RecentFiles {

/// How many documents an action sends.
inline constexpr int fewestDocuments = 1;
inline constexpr int mostDocuments = 100;

/// What the user has set up for one action; the host keeps it.
struct ActionConfig {
  /// How many documents to send.
  int count = 10;
  /// Which ones.
  FileKind kind = FileKind::all;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(ActionConfig, count, kind)

}  // namespace RecentFiles
