#include "Tests/Support/TestCompositor.h"

#include <stdexcept>
#include <utility>

#include <sys/eventfd.h>
#include <unistd.h>

namespace TestSupport {

namespace {

int terminate(int, std::uint32_t, void* display) {
  wl_display_terminate(static_cast<wl_display*>(display));
  return 0;
}

// A listener in a structure of its own, so that its data can be found.
struct Arrivals {
  wl_listener listener;
  std::atomic<int>* count;
};

void countArrival(wl_listener* listener, void*) {
  ++*reinterpret_cast<Arrivals*>(listener)->count;
}

}  // namespace

TestCompositor::TestCompositor() : display_(wl_display_create()), stopper_(eventfd(0, EFD_CLOEXEC)) {
  if (wl_display_add_socket(display_, socketName) != 0)
    throw std::runtime_error("no Wayland socket");
  stop_ = wl_event_loop_add_fd(wl_display_get_event_loop(display_), stopper_, WL_EVENT_READABLE, terminate, display_);
}

TestCompositor::~TestCompositor() {
  if (thread_.joinable()) {
    eventfd_write(stopper_, 1);
    thread_.join();
  }
  wl_event_source_remove(stop_);
  wl_display_destroy_clients(display_);
  wl_display_destroy(display_);
  close(stopper_);
}

void TestCompositor::offer(const wl_interface& interface, int version, Bound bound) {
  Global& global = globals_.emplace_back(Global{.interface = &interface, .bound = std::move(bound)});
  wl_global_create(display_, &interface, version, &global, bind);
}

void TestCompositor::bind(wl_client* client, void* global, std::uint32_t version, std::uint32_t id) {
  const auto& [interface, bound] = *static_cast<const Global*>(global);
  bound(wl_resource_create(client, interface, static_cast<int>(version), id));
}

void TestCompositor::start() {
  thread_ = std::thread([this] {
    Arrivals arrivals{.listener = {.link = {}, .notify = countArrival}, .count = &clients_};
    wl_display_add_client_created_listener(display_, &arrivals.listener);
    wl_display_run(display_);
    wl_list_remove(&arrivals.listener.link);
  });
}

wl_resource* makeObject(wl_resource* object, const wl_interface& interface) {
  return wl_resource_create(wl_resource_get_client(object), &interface, wl_resource_get_version(object), 0);
}

}  // namespace TestSupport
