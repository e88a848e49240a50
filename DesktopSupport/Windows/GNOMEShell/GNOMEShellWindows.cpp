#include "DesktopSupport/Windows/GNOMEShell/GNOMEShellWindows.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <ranges>
#include <string>
#include <string_view>
#include <utility>

namespace DesktopSupport {

namespace {

constexpr gsize longestAnswer = 16 << 20;

const char* const malformed = "GNOME Shell's list of windows is malformed.";

// What the extension calls the form of its answers.
constexpr guint32 knownVersion = 1;

// The kinds of windows that are not ordinary, as mutter numbers them.
namespace WindowType {
constexpr std::uint32_t desktop = 1;
constexpr std::uint32_t dock = 2;
constexpr std::uint32_t splashScreen = 8;
}  // namespace WindowType

// The properties of one window. Whether one of them had another type than it should is remembered.
class Properties {
 public:
  explicit Properties(VariantHandle dictionary) : dictionary_(std::move(dictionary)) {
    GVariantIter iterator;
    g_variant_iter_init(&iterator, dictionary_.get());
    const char* name = nullptr;
    GVariant* value = nullptr;
    while (g_variant_iter_next(&iterator, "{&sv}", &name, &value) != FALSE)
      values_.emplace(name, VariantHandle(value));
  }

  [[nodiscard]] bool areSound() const { return areSound_; }

  // Empty if the window does not have the property.
  std::string text(const char* name) {
    GVariant* const value = lookUp(name, G_VARIANT_TYPE_STRING);
    return value != nullptr ? g_variant_get_string(value, nullptr) : "";
  }

  std::optional<std::uint32_t> number(const char* name) {
    GVariant* const value = lookUp(name, G_VARIANT_TYPE_UINT32);
    return value != nullptr ? std::optional(g_variant_get_uint32(value)) : std::nullopt;
  }

  std::optional<std::int32_t> signedNumber(const char* name) {
    GVariant* const value = lookUp(name, G_VARIANT_TYPE_INT32);
    return value != nullptr ? std::optional(g_variant_get_int32(value)) : std::nullopt;
  }

  bool flag(const char* name) {
    GVariant* const value = lookUp(name, G_VARIANT_TYPE_BOOLEAN);
    return value != nullptr && g_variant_get_boolean(value) != FALSE;
  }

 private:
  // Null if the window does not have the property.
  GVariant* lookUp(std::string_view name, const GVariantType* type) {
    const auto value = values_.find(name);
    if (value == values_.end())
      return nullptr;
    const bool isSound = g_variant_is_of_type(value->second.get(), type) != FALSE;
    areSound_ &= isSound;
    return isSound ? value->second.get() : nullptr;
  }

  VariantHandle dictionary_;
  // The names are those in the dictionary.
  std::map<std::string_view, VariantHandle> values_;
  bool areSound_ = true;
};

std::string entryIDOf(Properties& properties) {
  std::string id = properties.text("desktop-entry");
  if (id.empty())
    return properties.text("sandboxed-app-id");
  constexpr std::string_view suffix = ".desktop";
  if (id.ends_with(suffix))
    id.resize(id.size() - suffix.size());
  return id;
}

bool isOrdinary(Properties& properties) {
  constexpr std::array partsOfTheDesktop = {WindowType::desktop, WindowType::dock, WindowType::splashScreen};
  const auto type = properties.number("type");
  return !properties.flag("skip-taskbar") && std::ranges::find(partsOfTheDesktop, type) == partsOfTheDesktop.end();
}

std::optional<pid_t> processOf(Properties& properties) {
  const std::optional<pid_t> pid = properties.signedNumber("pid");
  return pid.value_or(0) > 0 ? pid : std::nullopt;
}

Window windowFrom(Properties& properties, WindowID id) {
  return {.id = id,
          .instance = properties.text("wm-class-instance"),
          .windowClass = properties.text("wm-class"),
          .title = properties.text("title"),
          .applicationID = entryIDOf(properties),
          .transientFor = properties.number("transient-for"),
          .pid = processOf(properties),
          .isOrdinary = isOrdinary(properties),
          .isHidden = properties.flag("minimized")};
}

// Why the windows cannot be read, or `nullopt`.
std::optional<DesktopError> problemWith(GVariant* answer) {
  if (g_variant_get_size(answer) > longestAnswer)
    return DesktopError{"GNOME Shell's list of windows is too long."};
  const auto version = leadingNumber(answer);
  if (version && version != knownVersion)
    return DesktopError{
        "GNOME Shell runs version " + std::to_string(*version) +
        " of the extension gleanery@quillary.com, which does not go with this program. After an update, "
        "log out and in again."};
  if (g_variant_is_of_type(answer, G_VARIANT_TYPE("(uaa{sv})")) == FALSE)
    return DesktopError{malformed};
  return std::nullopt;
}

// The windows of an answer without a problem, in stacking order.
std::vector<Properties> windowsOf(GVariant* answer) {
  const VariantHandle list(g_variant_get_child_value(answer, 1));
  std::vector<Properties> windows;
  for (gsize index = 0; index < g_variant_n_children(list.get()); ++index)
    windows.emplace_back(VariantHandle(g_variant_get_child_value(list.get(), index)));
  return windows;
}

DesktopError describe(const BusError& error) {
  // As GLib names an object or interface that is not there.
  constexpr std::array<std::string_view, 3> missing = {"org.freedesktop.DBus.Error.UnknownMethod",
                                                       "org.freedesktop.DBus.Error.UnknownObject",
                                                       "org.freedesktop.DBus.Error.UnknownInterface"};
  if (error.name == BusErrorName::serviceUnknown || error.name == BusErrorName::nameHasNoOwner)
    return {.message = "GNOME Shell does not run.", .isAbsent = true};
  if (std::ranges::find(missing, error.name) != missing.end())
    return {.message = "GNOME Shell does not run the extension gleanery@quillary.com.", .isAbsent = true};
  if (error.name == BusErrorName::timeout)
    return {"GNOME Shell does not answer."};
  return {"GNOME Shell does not list its windows: " + error.message};
}

std::expected<VariantHandle, DesktopError> ask(const SessionBus& bus, std::chrono::milliseconds timeout) {
  const BusMethod list{.destination = "org.gnome.Shell",
                       .path = "/com/quillary/Gleanery/Windows",
                       .interface = "com.quillary.Gleanery.Windows",
                       .name = "List"};
  auto answer = bus.call(list, nullptr, nullptr, timeout);
  if (!answer)
    return std::unexpected(describe(answer.error()));
  return std::move(*answer);
}

}  // namespace

std::expected<WindowList, DesktopError> gnomeShellWindowsIn(GVariant* answer) {
  if (auto problem = problemWith(answer))
    return std::unexpected(std::move(*problem));
  WindowList list;
  for (Properties& properties : windowsOf(answer)) {
    const WindowID id = properties.number("id").value_or(0);
    list.windows.push_back(windowFrom(properties, id));
    list.stack.push_back(id);
    if (properties.flag("focus"))
      list.active = id;
    if (id == 0 || !properties.areSound())
      return std::unexpected(DesktopError{malformed});
  }
  // The Shell numbers its windows as they appear.
  std::ranges::sort(list.windows, {}, &Window::id);
  return list;
}

std::vector<GTKWindowName> gnomeShellGTKWindowsIn(GVariant* answer) {
  std::vector<GTKWindowName> names;
  if (problemWith(answer))
    return names;
  auto windows = windowsOf(answer);
  for (Properties& properties : windows | std::views::reverse) {
    GTKWindowName name{.connection = properties.text("gtk-unique-bus-name"),
                       .path = properties.text("gtk-window-object-path")};
    if (!name.path.empty())
      names.push_back(std::move(name));
  }
  return names;
}

std::expected<WindowList, DesktopError> readGNOMEShellWindows(const SessionBus& bus,
                                                              std::chrono::milliseconds timeout) {
  const auto answer = ask(bus, timeout);
  if (!answer)
    return std::unexpected(answer.error());
  return gnomeShellWindowsIn(answer->get());
}

std::expected<WindowList, DesktopError> readGNOMEShellWindows() {
  const auto bus = SessionBus::connect();
  if (!bus)
    return std::unexpected(DesktopError{.message = bus.error().message, .isAbsent = true});
  return readGNOMEShellWindows(*bus);
}

std::vector<GTKWindowName> readGNOMEShellGTKWindows() {
  const auto bus = SessionBus::connect();
  if (!bus)
    return {};
  const auto answer = ask(*bus, gnomeShellTime);
  return answer ? gnomeShellGTKWindowsIn(answer->get()) : std::vector<GTKWindowName>();
}

}  // namespace DesktopSupport
