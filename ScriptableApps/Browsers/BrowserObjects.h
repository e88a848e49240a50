#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "AppleScript/Values/Dictionary.h"
#include "AppleScript/Values/Value.h"
#include "BrowserSessions/BrowserSession.h"

namespace ScriptableApps {

/// A tab of a browser.
class BrowserTabObject : public AppleScript::Object {
 public:
  BrowserTabObject(const AppleScript::ClassDescription& tabClass, const BrowserSessions::BrowserTab& tab);

  [[nodiscard]] const AppleScript::ClassDescription& classDescription() const override { return *class_; }
  /// One line of UTF-8 of at most 1,000 characters; the address if the page has no title.
  [[nodiscard]] const std::string& title() const { return title_; }
  /// A URI as in RFC 3986; see `tabAddress`.
  [[nodiscard]] const std::string& url() const { return url_; }

 private:
  const AppleScript::ClassDescription* class_;
  std::string title_;
  std::string url_;
};

/// A window of a browser, with its tabs.
class BrowserWindowObject : public AppleScript::Object {
 public:
  BrowserWindowObject(const AppleScript::ClassDescription& windowClass, const BrowserSessions::BrowserWindow& window);

  [[nodiscard]] const AppleScript::ClassDescription& classDescription() const override { return *class_; }
  [[nodiscard]] const std::vector<std::shared_ptr<const BrowserTabObject>>& tabs() const { return tabs_; }
  /// The index of the tab that is shown. Less than the number of tabs, unless there are none.
  [[nodiscard]] std::size_t activeTab() const { return activeTab_; }

 private:
  const AppleScript::ClassDescription* class_;
  std::vector<std::shared_ptr<const BrowserTabObject>> tabs_;
  std::size_t activeTab_;
};

/// A browser itself, with its windows.
class BrowserRoot : public AppleScript::Object {
 public:
  /// The only elements of the class `browserClass` are windows, and theirs are tabs.
  BrowserRoot(const AppleScript::ClassDescription& browserClass, const BrowserSessions::BrowserSession& session);

  [[nodiscard]] const AppleScript::ClassDescription& classDescription() const override { return *class_; }
  [[nodiscard]] const std::vector<BrowserWindowObject>& windows() const { return windows_; }

 private:
  const AppleScript::ClassDescription* class_;
  std::vector<BrowserWindowObject> windows_;
};

/// The properties and elements for the tables of a browser's classes. The objects must be of the C++ classes above. A
/// window's title is that of its active tab. In a window without tabs, its title, its active tab and the index of that
/// (counted from 1) are `missing value`.
/// @{
AppleScript::Result<AppleScript::Value> tabTitle(const AppleScript::Object& tab);
AppleScript::Result<AppleScript::Value> tabURL(const AppleScript::Object& tab);
AppleScript::Result<AppleScript::Value> windowTitle(const AppleScript::Object& window);
AppleScript::Result<AppleScript::Value> windowActiveTab(const AppleScript::Object& window);
AppleScript::Result<AppleScript::Value> windowActiveTabIndex(const AppleScript::Object& window);
std::size_t countTabs(const AppleScript::Object& window);
const AppleScript::Object& tabAt(const AppleScript::Object& window, std::size_t index);
std::size_t countWindows(const AppleScript::Object& browser);
const AppleScript::Object& windowAt(const AppleScript::Object& browser, std::size_t index);
/// @}

}  // namespace ScriptableApps
