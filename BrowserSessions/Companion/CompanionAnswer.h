#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <string>
#include <vector>

#include <sys/types.h>

#include "DesktopSupport/System/GLibHandles.h"

namespace BrowserSessions {

/// The D-Bus interface of a browser's companion, `Companions/Browser`: the method List.
inline constexpr const char* companionInterface = "com.quillary.Gleanery.Tabs";
/// The object that has the interface.
inline constexpr const char* companionPath = "/com/quillary/Gleanery/Tabs";
/// The interface as introspection XML, for the program that exports it.
extern const char* const companionIntrospection;

/// The form of the answers. A companion whose answers mean something else has another number.
inline constexpr std::uint32_t companionVersion = 1;

/// How the names of all companions in this process of a browser begin. A browser has one for each of its profiles.
std::string companionNamePrefix(pid_t browser);

/// The name on the bus of one of them, given its own process.
std::string companionName(pid_t browser, pid_t companion);

/// A tab, as the browser tells its extension.
struct CompanionTab {
  std::string title;
  /// The address of the page that is shown or, before the first one, of the page that is being loaded.
  std::string url;
  /// Whether its window shows it.
  bool isActive = false;
  bool isPinned = false;
  bool isLoading = false;

  bool operator==(const CompanionTab&) const = default;
};

/// A window that is not private.
struct CompanionWindow {
  /// The browser's number for it.
  std::int64_t number = 0;
  /// What WebExtensions call its type: "normal", "popup".
  std::string type = {};
  /// Whether it has the keyboard focus.
  bool isFocused = false;
  /// Its tabs in the order of the tab strip, as one text, which costs the bus much less than a value for each. A tab
  /// has three lines, each with a line feed at its end: letters for what it is (a: active, p: pinned, l: loading), its
  /// title, its address.
  std::string tabs = {};

  bool operator==(const CompanionWindow&) const = default;
};

/// What one companion tells: everything about one profile of a running browser.
struct CompanionAnswer {
  /// The browser's process, and which extension asked: for people who read the answer.
  std::uint32_t browser = 0;
  std::string extension = {};
  /// The windows, the one that was used last first.
  std::vector<CompanionWindow> windows = {};

  bool operator==(const CompanionAnswer&) const = default;
};

/// Whether the text of a window has all lines of its tabs.
bool hasWholeTabs(const CompanionWindow& window);

/// The tabs in the text of a window.
std::vector<CompanionTab> tabsOf(const CompanionWindow& window);

/// The arguments of the reply to List; floating. Texts that D-Bus cannot carry are changed as by
/// `DesktopSupport::validUTF8`.
GVariant* variantFrom(const CompanionAnswer& answer);

/// Reads the reply to List, of any type. Fails with a sentence if the companion has another version or the reply is
/// malformed, also in the text of a window.
std::expected<CompanionAnswer, std::string> companionAnswerIn(GVariant* reply);

}  // namespace BrowserSessions
