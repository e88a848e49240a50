#include "Tests/Support/Compositor.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <thread>

#include "Tests/Support/BusNames.h"
#include "Tests/Support/Compositors.h"
#include "Tests/Support/GIOHandles.h"
#include "Tests/Support/Patience.h"

namespace TestSupport {

std::unique_ptr<Compositor> Compositor::running() {
  if (std::getenv("SWAYSOCK") != nullptr)
    return makeSway();
  if (hasOwner("org.kde.KWin"))
    return makeKWin();
  if (hasOwner("org.gnome.Shell"))
    return makeGNOMEShell();
  throw std::runtime_error("no compositor that can be asked: these tests run under script/desktop --session");
}

DesktopSupport::VariantHandle callCompositor(const char* busName, const std::string& path, const char* interface,
                                             const char* method, GVariant* arguments, const char* answerType) {
  using namespace DesktopSupport;
  ErrorHandle error;
  const ObjectHandle<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, Out(error)));
  VariantHandle answer(bus ? g_dbus_connection_call_sync(bus.get(), busName, path.c_str(), interface, method, arguments,
                                                         G_VARIANT_TYPE(answerType), G_DBUS_CALL_FLAGS_NO_AUTO_START,
                                                         milliseconds(patience), nullptr, Out(error))
                           : nullptr);
  if (!answer)
    throw std::runtime_error(std::string(method) + ": " + error->message);
  return answer;
}

std::vector<CompositorWindow> windowsFrom(const nlohmann::json& list) {
  std::vector<CompositorWindow> windows;
  for (const auto& window : list)
    windows.push_back({.id = window.at("id").get<std::string>(),
                       .title = window.at("title").get<std::string>(),
                       .application = window.at("application").get<std::string>(),
                       .process = window.at("process").get<pid_t>(),
                       .isFocused = window.at("isFocused").get<bool>(),
                       .isMinimized = window.at("isMinimized").get<bool>()});
  return windows;
}

std::optional<CompositorWindow> Compositor::find(std::string_view title) {
  const auto all = windows();
  const auto found = std::ranges::find(all, title, &CompositorWindow::title);
  return found == all.end() ? std::nullopt : std::optional(*found);
}

std::optional<CompositorWindow> Compositor::awaitWindow(std::string_view title) {
  std::optional<CompositorWindow> window;
  static_cast<void>(waitUntil([&] { return (window = find(title)).has_value(); }));
  return window;
}

std::optional<CompositorWindow> Compositor::findAndChange(std::string_view title, Change change) {
  auto window = awaitWindow(title);
  if (window)
    this->change(*window, change);
  return window;
}

bool Compositor::awaitChange(const std::optional<CompositorWindow>& changed,
                             bool (*isDone)(const CompositorWindow& window)) {
  return changed && waitUntil([&] {
           const auto all = windows();
           const auto window = std::ranges::find(all, changed->id, &CompositorWindow::id);
           return window != all.end() && isDone(*window);
         });
}

bool Compositor::focus(std::string_view title) {
  return awaitChange(findAndChange(title, Change::focus),
                     [](const CompositorWindow& window) { return window.isFocused && !window.isMinimized; });
}

bool Compositor::minimize(std::string_view title) {
  return awaitChange(findAndChange(title, Change::minimize),
                     [](const CompositorWindow& window) { return window.isMinimized; });
}

bool Compositor::close(std::string_view title) {
  const auto closed = findAndChange(title, Change::close);
  return closed && waitUntil([&] { return std::ranges::count(windows(), closed->id, &CompositorWindow::id) == 0; });
}

bool Compositor::waitForNoWindows() {
  return waitUntil([this] { return windows().empty(); });
}

bool Compositor::waitUntil(const std::function<bool()>& condition) {
  const auto deadline = std::chrono::steady_clock::now() + patience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline)
      return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return true;
}

}  // namespace TestSupport
