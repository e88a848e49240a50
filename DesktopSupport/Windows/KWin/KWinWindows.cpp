#include "DesktopSupport/Windows/KWin/KWinWindows.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "DesktopSupport/Bus/SessionBus.h"

namespace DesktopSupport {

namespace {

using Deadline = std::chrono::steady_clock::time_point;

// More than anybody has open, and fewer than the bus lets a program wait for.
constexpr std::size_t mostWindows = 10'000;

const BusMethod search{
    .destination = "org.kde.KWin", .path = "/WindowsRunner", .interface = "org.kde.krunner1", .name = "Match"};
const BusMethod describe{
    .destination = "org.kde.KWin", .path = "/KWin", .interface = "org.kde.KWin", .name = "getWindowInfo"};

std::chrono::milliseconds timeUntil(Deadline deadline) {
  return std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
}

DesktopError failure(const BusError& error) {
  const bool isAbsent = error.name == BusErrorName::noServer || error.name == BusErrorName::serviceUnknown ||
                        error.name == BusErrorName::nameHasNoOwner;
  return {.message = "KWin does not list its windows: " + error.message, .isAbsent = isAbsent};
}

// The window's id, "{…}", in a result's id, such as "0_{…}"; empty if the result is something else, such as a virtual
// desktop.
std::string windowIn(std::string_view result) {
  const auto begin = result.find('{');
  const auto end = result.find('}', begin);
  return end == std::string_view::npos ? "" : std::string(result.substr(begin, end + 1 - begin));
}

// A question about each window in the results of a search. A window is in them once for every reason to find it.
std::vector<BusCall> questionsAbout(GVariant* results) {
  std::vector<BusCall> windows;
  std::unordered_set<std::string> known;
  for (gsize index = 0; index < g_variant_n_children(results); ++index) {
    const VariantHandle result(g_variant_get_child_value(results, index));
    const char* id = nullptr;
    g_variant_get_child(result.get(), 0, "&s", &id);
    const std::string window = windowIn(id);
    if (!window.empty() && known.insert(window).second)
      windows.push_back({.method = describe,
                         .arguments = owned(g_variant_new("(s)", window.c_str())),
                         .replyType = G_VARIANT_TYPE("(a{sv})")});
  }
  return windows;
}

// What KWin says about a window: named values.
class Description {
 public:
  explicit Description(GVariant* answer) : values_(g_variant_get_child_value(answer, 0)) {}

  // A window that is gone has no description.
  [[nodiscard]] bool isEmpty() const { return g_variant_n_children(values_.get()) == 0; }

  // The value; notes its name if it is missing or has another type.
  std::string text(const char* name) {
    const VariantHandle value = find(name, G_VARIANT_TYPE_STRING);
    return value ? g_variant_get_string(value.get(), nullptr) : "";
  }
  bool isTrue(const char* name) {
    const VariantHandle value = find(name, G_VARIANT_TYPE_BOOLEAN);
    return value && g_variant_get_boolean(value.get()) != FALSE;
  }

  // The first name of a value that is not as it should be.
  [[nodiscard]] const std::optional<std::string>& missing() const { return missing_; }

 private:
  VariantHandle find(const char* name, const GVariantType* type) {
    VariantHandle value(g_variant_lookup_value(values_.get(), name, type));
    if (!value && !missing_)
      missing_ = name;
    return value;
  }

  VariantHandle values_;
  std::optional<std::string> missing_;
};

// Only ordinary windows are found, but some of them may ask task bars to leave them out.
Window windowOf(Description& description, WindowID id) {
  return {.id = id,
          .instance = description.text("resourceName"),
          .windowClass = description.text("resourceClass"),
          .title = description.text("caption"),
          .applicationID = description.text("desktopFile"),
          .isOrdinary = !description.isTrue("skipTaskbar"),
          .isHidden = description.isTrue("minimized")};
}

std::expected<WindowList, DesktopError> listOf(const std::vector<BusAnswer>& descriptions) {
  WindowList list{
      .windows = {},
      .isComplete = false,
      .problems = {"KWin lets this program only search for windows, and tells neither their processes nor which one is "
                   "active. It permits more to installed programs whose desktop entries ask for it."}};
  for (const BusAnswer& answer : descriptions) {
    if (!answer)
      return std::unexpected(failure(answer.error()));
    Description description(answer->get());
    if (description.isEmpty())
      continue;
    list.windows.push_back(windowOf(description, list.windows.size()));
    if (description.missing())
      return std::unexpected(DesktopError{"KWin describes a window without \"" + *description.missing() + "\"."});
  }
  return list;
}

}  // namespace

std::expected<WindowList, DesktopError> readKWinWindows(std::chrono::milliseconds patience) {
  const Deadline deadline = std::chrono::steady_clock::now() + patience;
  const auto bus = SessionBus::connect(patience);
  if (!bus)
    return std::unexpected(failure(bus.error()));
  // Every title begins with an empty text. One of the values is an integer of another type than KWin promises.
  const auto found =
      bus->call(search, g_variant_new("(s)", ""), G_VARIANT_TYPE("(a(sss?da{sv}))"), timeUntil(deadline));
  if (!found)
    return std::unexpected(failure(found.error()));
  const VariantHandle results(g_variant_get_child_value(found->get(), 0));
  const std::vector<BusCall> windows = questionsAbout(results.get());
  if (windows.size() > mostWindows)
    return std::unexpected(
        DesktopError{"KWin lists " + std::to_string(windows.size()) + " windows, more than can be."});
  return listOf(bus->callAll(windows, timeUntil(deadline)));
}

}  // namespace DesktopSupport
