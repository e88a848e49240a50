#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "DesktopSupport/DesktopEntries/DesktopEntry.h"
#include "DesktopSupport/System/CommandLine.h"

namespace DesktopSupport {

/// Desktop entries by what they say about their windows and programs. Where several fit, an entry that menus show goes
/// before one that they don't, else the one with the lesser id.
class DesktopEntryIndex {
 public:
  /// `entries` come in the order of their ids and must outlive the index.
  explicit DesktopEntryIndex(const std::vector<const DesktopEntry*>& entries);

  /// The entry whose StartupWMClass is `windowClass`; preferably the one with that id. nullptr where there is none.
  [[nodiscard]] const DesktopEntry* withStartupClass(std::string_view windowClass) const;

  /// The same without regard to case.
  [[nodiscard]] const DesktopEntry* withStartupClassIgnoringCase(std::string_view windowClass) const;

  /// The entry that starts the program of `command`: of those whose fixed arguments `command` begins with, the one that
  /// has most of them.
  [[nodiscard]] const DesktopEntry* starting(const CommandLine& command) const;

 private:
  struct Start {
    const DesktopEntry* entry = nullptr;
    CommandLine command;
  };
  void addStarts(const DesktopEntry& entry);

  std::unordered_map<std::string, std::vector<const DesktopEntry*>> byStartupClass_;
  std::unordered_map<std::string, std::vector<const DesktopEntry*>> byLowerCaseClass_;
  std::unordered_map<std::string, std::vector<Start>> byProgram_;
};

}  // namespace DesktopSupport
