#include "BrowserSessions/Companion/CompanionAnswer.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/System/Text.h"

namespace BrowserSessions {

namespace {

using DesktopSupport::VariantHandle;

// The version, facts about the browser, and the windows: number, type, focus, tabs.
constexpr const char* replyType = "(ua{sv}a(xsbs))";

const char* const malformed = "The companion's list of tabs is malformed.";

// D-Bus's own limit for a reply.
constexpr gsize longestReply = 128 << 20;

std::string text(const std::string& given) {
  return DesktopSupport::validUTF8(given);
}

GVariant* variantFrom(const CompanionWindow& window) {
  return g_variant_new("(xsbs)", gint64(window.number), text(window.type).c_str(), gboolean(window.isFocused),
                       text(window.tabs).c_str());
}

std::vector<CompanionWindow> windowsIn(GVariant* list) {
  std::vector<CompanionWindow> windows;
  GVariantIter iterator;
  g_variant_iter_init(&iterator, list);
  gint64 number = 0;
  const char* type = nullptr;
  gboolean isFocused = FALSE;
  const char* tabs = nullptr;
  while (g_variant_iter_next(&iterator, "(x&sb&s)", &number, &type, &isFocused, &tabs) != FALSE)
    windows.push_back({.number = number, .type = type, .isFocused = isFocused != FALSE, .tabs = tabs});
  return windows;
}

// Takes a line and its line feed from the beginning of a text.
std::string_view takeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  return line;
}

}  // namespace

const char* const companionIntrospection = R"XML(
  <node>
    <interface name="com.quillary.Gleanery.Tabs">
      <method name="List">
        <arg type="u" name="version" direction="out"/>
        <arg type="a{sv}" name="browser" direction="out"/>
        <arg type="a(xsbs)" name="windows" direction="out"/>
      </method>
    </interface>
  </node>)XML";

std::string companionNamePrefix(pid_t browser) {
  return std::string(companionInterface) + ".Browser" + std::to_string(browser) + '.';
}

std::string companionName(pid_t browser, pid_t companion) {
  return companionNamePrefix(browser) + "Companion" + std::to_string(companion);
}

GVariant* variantFrom(const CompanionAnswer& answer) {
  GVariantBuilder facts;
  g_variant_builder_init(&facts, G_VARIANT_TYPE("a{sv}"));
  g_variant_builder_add(&facts, "{sv}", "process", g_variant_new_uint32(answer.browser));
  g_variant_builder_add(&facts, "{sv}", "extension", g_variant_new_string(text(answer.extension).c_str()));
  GVariantBuilder windows;
  g_variant_builder_init(&windows, G_VARIANT_TYPE("a(xsbs)"));
  for (const CompanionWindow& window : answer.windows)
    g_variant_builder_add_value(&windows, variantFrom(window));
  return g_variant_new(replyType, guint32(companionVersion), &facts, &windows);
}

std::expected<CompanionAnswer, std::string> companionAnswerIn(GVariant* reply) {
  if (const auto version = DesktopSupport::leadingNumber(reply); version && *version != companionVersion)
    return std::unexpected("The browser runs version " + std::to_string(*version) +
                           " of the companion, which does not go with this program. After an update, start the "
                           "browser again.");
  if (g_variant_is_of_type(reply, G_VARIANT_TYPE(replyType)) == FALSE || g_variant_get_size(reply) > longestReply)
    return std::unexpected(malformed);
  CompanionAnswer answer;
  const VariantHandle facts(g_variant_get_child_value(reply, 1));
  const char* extension = nullptr;
  if (g_variant_lookup(facts.get(), "extension", "&s", &extension) != FALSE)
    answer.extension = extension;
  g_variant_lookup(facts.get(), "process", "u", &answer.browser);
  const VariantHandle windows(g_variant_get_child_value(reply, 2));
  answer.windows = windowsIn(windows.get());
  if (!std::ranges::all_of(answer.windows, hasWholeTabs))
    return std::unexpected(malformed);
  return answer;
}

bool hasWholeTabs(const CompanionWindow& window) {
  constexpr std::ptrdiff_t linesOfATab = 3;
  return std::ranges::count(window.tabs, '\n') % linesOfATab == 0 &&
         (window.tabs.empty() || window.tabs.ends_with('\n'));
}

std::vector<CompanionTab> tabsOf(const CompanionWindow& window) {
  std::vector<CompanionTab> tabs;
  std::string_view rest = window.tabs;
  while (!rest.empty()) {
    const std::string_view state = takeLine(rest);
    const std::string_view title = takeLine(rest);
    tabs.push_back({.title = std::string(title),
                    .url = std::string(takeLine(rest)),
                    .isActive = state.contains('a'),
                    .isPinned = state.contains('p'),
                    .isLoading = state.contains('l')});
  }
  return tabs;
}

}  // namespace BrowserSessions
