#include "DesktopSupport/Windows/Accessible/AccessibilityBus.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "DesktopSupport/Bus/BusDaemon.h"

namespace DesktopSupport {

namespace {

constexpr std::size_t mostPrograms = 500;
constexpr std::size_t mostWindows = 500;

// The protocol's own numbers.
namespace Role {
constexpr std::uint32_t alert = 2;
constexpr std::uint32_t dialog = 16;
constexpr std::uint32_t frame = 23;
}  // namespace Role

namespace State {
constexpr unsigned active = 1;
constexpr unsigned iconified = 15;
constexpr unsigned visible = 30;
}  // namespace State

// An object of a program on the bus.
struct Place {
  std::string connection;
  std::string path;
};

constexpr const char* accessibleInterface = "org.a11y.atspi.Accessible";

// Leaves out what would exceed `most`.
std::vector<Place> placesIn(GVariant* children, std::size_t most) {
  std::vector<Place> places;
  const VariantHandle list(children != nullptr ? g_variant_get_child_value(children, 0) : nullptr);
  const gsize count = list ? std::min<gsize>(g_variant_n_children(list.get()), most) : 0;
  for (gsize index = 0; index < count; ++index) {
    const char* connection = nullptr;
    const char* path = nullptr;
    g_variant_get_child(list.get(), index, "(&s&o)", &connection, &path);
    places.push_back({connection, path});
  }
  return places;
}

BusCall ask(const Place& place, const char* method, const char* replyType) {
  return {.method = {place.connection, place.path, accessibleInterface, method},
          .replyType = reinterpret_cast<const GVariantType*>(replyType)};
}

BusCall askForName(const Place& place) {
  return {.method = {place.connection, place.path, "org.freedesktop.DBus.Properties", "Get"},
          .arguments = owned(g_variant_new("(ss)", accessibleInterface, "Name")),
          .replyType = G_VARIANT_TYPE("(v)")};
}

BusCall askForProcess(const Place& place) {
  return {.method = busDaemonMethod("GetConnectionUnixProcessID"),
          .arguments = owned(g_variant_new("(s)", place.connection.c_str())),
          .replyType = G_VARIANT_TYPE("(u)")};
}

std::optional<std::uint32_t> numberIn(const VariantHandle& reply) {
  if (!reply)
    return std::nullopt;
  std::uint32_t number = 0;
  g_variant_get(reply.get(), "(u)", &number);
  return number;
}

std::string textIn(const VariantHandle& reply) {
  if (!reply)
    return "";
  VariantHandle value;
  g_variant_get(reply.get(), "(v)", static_cast<GVariant**>(Out(value)));
  return g_variant_is_of_type(value.get(), G_VARIANT_TYPE_STRING) != FALSE ? g_variant_get_string(value.get(), nullptr)
                                                                           : "";
}

// The set of states travels in words of 32 bits, the lowest first.
bool hasState(const VariantHandle& reply, unsigned state) {
  constexpr unsigned wordSize = 32;
  const VariantHandle words(g_variant_get_child_value(reply.get(), 0));
  if (g_variant_n_children(words.get()) <= state / wordSize)
    return false;
  std::uint32_t word = 0;
  g_variant_get_child(words.get(), state / wordSize, "u", &word);
  return (word >> (state % wordSize) & 1U) != 0;
}

// The window that a program describes with these answers; `nullopt` if it is none that the user can know of.
std::optional<AccessibleWindow> windowFrom(const VariantHandle& role, const VariantHandle& states) {
  constexpr std::array windowRoles = {Role::frame, Role::dialog, Role::alert};
  if (!states || std::ranges::find(windowRoles, numberIn(role)) == windowRoles.end())
    return std::nullopt;
  const AccessibleWindow window{.isActive = hasState(states, State::active),
                                .isMinimized = hasState(states, State::iconified)};
  return window.isMinimized || hasState(states, State::visible) ? std::optional(window) : std::nullopt;
}

// Asks many programs at a time, so that one that does not answer delays the others once.
class Questions {
 public:
  explicit Questions(const SessionBus& bus) : bus_(bus) {}

  // The answers in the order of the calls, null for each that fails.
  std::vector<VariantHandle> ask(const std::vector<BusCall>& calls) {
    using std::chrono::milliseconds;
    const auto left = std::chrono::duration_cast<milliseconds>(end_ - std::chrono::steady_clock::now());
    std::vector<VariantHandle> answers;
    for (BusAnswer& answer : bus_.callAll(calls, std::clamp(left, milliseconds(0), accessibleProgramTime)))
      answers.push_back(answer ? std::move(*answer) : nullptr);
    return answers;
  }

 private:
  const SessionBus& bus_;
  std::chrono::steady_clock::time_point end_ = std::chrono::steady_clock::now() + accessibilityTime;
};

// Adds the windows among the children of the programs, which are in the same order.
void addWindows(Questions& questions, const std::vector<std::vector<Place>>& children,
                std::vector<AccessibleProgram>& programs) {
  std::vector<BusCall> calls;
  for (const auto& places : children)
    for (const Place& place : places) {
      calls.push_back(ask(place, "GetRole", "(u)"));
      calls.push_back(ask(place, "GetState", "(au)"));
    }
  const auto answers = questions.ask(calls);
  auto answer = answers.begin();
  for (std::size_t index = 0; index < programs.size(); ++index)
    for (std::size_t child = 0; child < children[index].size(); ++child, answer += 2)
      if (const auto window = windowFrom(answer[0], answer[1]))
        programs[index].windows.push_back(*window);
}

std::optional<SessionBus> connect(const SessionBus& sessionBus) {
  const BusMethod getAddress{"org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress"};
  const auto reply = sessionBus.call(getAddress, nullptr, G_VARIANT_TYPE("(s)"), accessibleProgramTime);
  if (!reply)
    return std::nullopt;
  const char* address = nullptr;
  g_variant_get(reply->get(), "(&s)", &address);
  auto bus = SessionBus::connectTo(address, accessibilityTime);
  return bus ? std::optional(std::move(*bus)) : std::nullopt;
}

}  // namespace

std::optional<std::vector<AccessibleProgram>> accessiblePrograms(const SessionBus& sessionBus) {
  const auto bus = connect(sessionBus);
  if (!bus)
    return std::nullopt;
  Questions questions(*bus);
  const Place registry{"org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"};
  std::vector<BusCall> calls;
  calls.push_back(ask(registry, "GetChildren", "(a(so))"));
  const auto list = questions.ask(calls);
  if (!list.front())
    return std::nullopt;

  const auto places = placesIn(list.front().get(), mostPrograms);
  calls.clear();
  for (const Place& place : places) {
    calls.push_back(askForProcess(place));
    calls.push_back(askForName(place));
    calls.push_back(ask(place, "GetChildren", "(a(so))"));
  }
  const auto answers = questions.ask(calls);
  std::vector<AccessibleProgram> programs;
  std::vector<std::vector<Place>> children;
  std::size_t windowsLeft = mostWindows;
  for (auto answer = answers.begin(); answer != answers.end(); answer += 3) {
    const auto pid = numberIn(answer[0]);
    programs.push_back(
        {.name = textIn(answer[1]), .pid = pid ? std::optional(static_cast<pid_t>(*pid)) : std::nullopt});
    children.push_back(placesIn(answer[2].get(), windowsLeft));
    windowsLeft -= children.back().size();
  }
  addWindows(questions, children, programs);
  return programs;
}

}  // namespace DesktopSupport
