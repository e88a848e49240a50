#include "ScriptableApps/Browsers/BrowserObjects.h"

#include "DesktopSupport/System/DisplayableText.h"
#include "ScriptableApps/Browsers/TabAddress.h"

namespace ScriptableApps {

namespace {

using AppleScript::ClassDescription;
using AppleScript::Object;
using AppleScript::Value;

using Answer = AppleScript::Result<Value>;

const BrowserTabObject& asTab(const Object& tab) {
  return static_cast<const BrowserTabObject&>(tab);
}

const BrowserWindowObject& asWindow(const Object& window) {
  return static_cast<const BrowserWindowObject&>(window);
}

const BrowserRoot& asBrowser(const Object& browser) {
  return static_cast<const BrowserRoot&>(browser);
}

std::shared_ptr<const BrowserTabObject> activeTabOf(const Object& window) {
  const auto& tabs = asWindow(window).tabs();
  const std::size_t active = asWindow(window).activeTab();
  return active < tabs.size() ? tabs[active] : nullptr;
}

const ClassDescription& elementClassOf(const ClassDescription& container) {
  return *container.elements.front().elementClass;
}

}  // namespace

BrowserTabObject::BrowserTabObject(const ClassDescription& tabClass, const BrowserSessions::BrowserTab& tab)
    : class_(&tabClass), title_(DesktopSupport::displayableName(tab.title)), url_(tabAddress(tab.url)) {
  if (title_.empty())
    title_ = DesktopSupport::shortened(url_);
}

BrowserWindowObject::BrowserWindowObject(const ClassDescription& windowClass,
                                         const BrowserSessions::BrowserWindow& window)
    : class_(&windowClass), activeTab_(window.activeTab) {
  tabs_.reserve(window.tabs.size());
  for (const BrowserSessions::BrowserTab& tab : window.tabs)
    tabs_.push_back(std::make_shared<const BrowserTabObject>(elementClassOf(windowClass), tab));
}

BrowserRoot::BrowserRoot(const ClassDescription& browserClass, const BrowserSessions::BrowserSession& session)
    : class_(&browserClass) {
  windows_.reserve(session.size());
  for (const BrowserSessions::BrowserWindow& window : session)
    windows_.emplace_back(elementClassOf(browserClass), window);
}

Answer tabTitle(const Object& tab) {
  return Value(asTab(tab).title());
}

Answer tabURL(const Object& tab) {
  return Value(asTab(tab).url());
}

Answer windowTitle(const Object& window) {
  const auto tab = activeTabOf(window);
  return tab ? Value(tab->title()) : Value();
}

Answer windowActiveTab(const Object& window) {
  const auto tab = activeTabOf(window);
  return tab ? Value(AppleScript::ObjectPointer(tab)) : Value();
}

Answer windowActiveTabIndex(const Object& window) {
  return activeTabOf(window) ? Value(asWindow(window).activeTab() + 1) : Value();
}

std::size_t countTabs(const Object& window) {
  return asWindow(window).tabs().size();
}

const Object& tabAt(const Object& window, std::size_t index) {
  return *asWindow(window).tabs()[index];
}

std::size_t countWindows(const Object& browser) {
  return asBrowser(browser).windows().size();
}

const Object& windowAt(const Object& browser, std::size_t index) {
  return asBrowser(browser).windows()[index];
}

}  // namespace ScriptableApps
