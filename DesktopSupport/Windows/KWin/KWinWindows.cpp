#include "DesktopSupport/Windows/KWin/KWinWindows.h"

#include <algorithm>
#include <iterator>
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

// What KWin says about a window: named values.
class Description {
 public:
  explicit Description(GVariant* values) : values_(values) {}

  // The value; notes its name if it is missing or has another type.
  std::string text(const char* name) {
    const VariantHandle value = find(name, G_VARIANT_TYPE_STRING);
    return value ? g_variant_get_string(value.get(), nullptr) : "";
  }
  bool isTrue(const char* name) {
    const VariantHandle value = find(name, G_VARIANT_TYPE_BOOLEAN);
    return value && g_variant_get_boolean(value.get()) != FALSE;
  }

  // The first name of a value that is not as it should be; empty if there is none.
  [[nodiscard]] const std::string& missing() const { return missing_; }

 private:
  VariantHandle find(const char* name, const GVariantType* type) {
    VariantHandle value(g_variant_lookup_value(values_, name, type));
    if (!value && missing_.empty())
      missing_ = name;
    return value;
  }

  // Borrowed.
  GVariant* values_;
  std::string missing_;
};

BusCall questionAbout(const std::string& window) {
  return {.method = describe,
          .arguments = owned(g_variant_new("(s)", window.c_str())),
          .replyType = G_VARIANT_TYPE("(a{sv})")};
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
    const VariantHandle description(g_variant_get_child_value(answer->get(), 0));
    // Nothing is said about a window that is gone.
    if (g_variant_n_children(description.get()) == 0)
      continue;
    auto window = kwinWindowIn(description.get());
    if (!window)
      return std::unexpected(std::move(window.error()));
    window->id = list.windows.size() + 1;
    list.windows.push_back(std::move(*window));
  }
  return list;
}

}  // namespace

// A window is among the results once for every reason to find it.
std::vector<std::string> kwinWindowIDsIn(GVariant* results) {
  std::vector<std::string> ids;
  std::unordered_set<std::string> known;
  for (gsize index = 0; index < g_variant_n_children(results); ++index) {
    const VariantHandle result(g_variant_get_child_value(results, index));
    const char* id = nullptr;
    g_variant_get_child(result.get(), 0, "&s", &id);
    std::string window = windowIn(id);
    if (!window.empty() && known.insert(window).second)
      ids.push_back(std::move(window));
  }
  return ids;
}

// Only ordinary windows are found, but some of them may ask task bars to leave them out.
std::expected<Window, DesktopError> kwinWindowIn(GVariant* description) {
  Description values(description);
  Window window{.instance = values.text("resourceName"),
                .windowClass = values.text("resourceClass"),
                .title = values.text("caption"),
                .applicationID = values.text("desktopFile"),
                .isOrdinary = !values.isTrue("skipTaskbar"),
                .isHidden = values.isTrue("minimized")};
  if (!values.missing().empty())
    return std::unexpected(DesktopError{"KWin describes a window without \"" + values.missing() + "\"."});
  return window;
}

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
  const std::vector<std::string> windows = kwinWindowIDsIn(results.get());
  if (windows.size() > mostWindows)
    return std::unexpected(
        DesktopError{"KWin lists " + std::to_string(windows.size()) + " windows, more than can be."});
  std::vector<BusCall> questions;
  std::ranges::transform(windows, std::back_inserter(questions), questionAbout);
  return listOf(bus->callAll(questions, timeUntil(deadline)));
}

}  // namespace DesktopSupport
