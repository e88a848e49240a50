#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <list>
#include <string>
#include <thread>

#include <wayland-server-core.h>

#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

namespace TestSupport {

/// A Wayland compositor that shows nothing and offers what the test says. WAYLAND_DISPLAY names it during the lifetime
/// of this object, and DISPLAY names nothing.
class TestCompositor {
 public:
  /// Called on the compositor's thread when a client has bound a global: `global` is its object.
  using Bound = std::function<void(wl_resource* global)>;

  TestCompositor();
  TestCompositor(const TestCompositor&) = delete;
  TestCompositor& operator=(const TestCompositor&) = delete;
  ~TestCompositor();

  /// Offers a global. Must be called before `start`.
  void offer(const wl_interface& interface, int version, Bound bound);

  /// Serves clients from now on. Until then they can connect and get no answer.
  void start();

  /// How many clients have connected since the start.
  [[nodiscard]] int clients() const { return clients_; }

  /// The path of its socket.
  [[nodiscard]] std::string socket() const { return (folder_.path() / socketName).string(); }

 private:
  struct Global {
    const wl_interface* interface;
    Bound bound;
  };
  static constexpr const char* socketName = "wayland-test";
  static void bind(wl_client* client, void* global, std::uint32_t version, std::uint32_t id);

  TemporaryFolder folder_;
  EnvironmentVariable runtimeFolder_{"XDG_RUNTIME_DIR", folder_.path()};
  EnvironmentVariable name_{"WAYLAND_DISPLAY", socketName};
  EnvironmentVariable noXServer_{"DISPLAY", std::nullopt};
  wl_display* display_;
  int stopper_;
  wl_event_source* stop_ = nullptr;
  std::list<Global> globals_;
  std::atomic<int> clients_ = 0;
  std::thread thread_;
};

/// A new object of the compositor for the client that has `object`.
wl_resource* makeObject(wl_resource* object, const wl_interface& interface);

}  // namespace TestSupport
