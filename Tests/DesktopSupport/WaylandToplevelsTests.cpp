#include <array>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <future>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <unistd.h>

#include "DesktopSupport/Windows/Wayland/Compositor.h"
#include "DesktopSupport/Windows/Wayland/ListedToplevels.h"
#include "DesktopSupport/Windows/Wayland/Protocols.h"
#include "DesktopSupport/Windows/Wayland/WlrootsWindows.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/Support/TestCompositor.h"

namespace {

using namespace DesktopSupport;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using TestSupport::TestCompositor;

/// A window that zwlr_foreign_toplevel_manager_v1 tells about.
class WlrootsHandle {
 public:
  explicit WlrootsHandle(wl_resource* manager)
      : resource_(TestSupport::makeObject(manager, zwlr_foreign_toplevel_handle_v1_interface)) {
    wl_resource_post_event(manager, 0, resource_);
  }

  WlrootsHandle& title(const char* text) { return post(0, text); }
  WlrootsHandle& appID(const char* text) { return post(1, text); }
  WlrootsHandle& states(std::vector<std::uint32_t> states) {
    wl_array array = {
        .size = states.size() * sizeof(std::uint32_t), .alloc = 0, .data = static_cast<void*>(states.data())};
    return post(4, &array);
  }
  WlrootsHandle& done() { return post(5); }
  WlrootsHandle& closed() { return post(6); }
  WlrootsHandle& parent(const WlrootsHandle& parent) { return post(7, parent.resource_); }

 private:
  template <typename... Arguments>
  WlrootsHandle& post(std::uint32_t event, Arguments... arguments) {
    wl_resource_post_event(resource_, event, arguments...);
    return *this;
  }

  wl_resource* resource_;
};

/// The windows that a compositor with zwlr_foreign_toplevel_manager_v1 lists if it tells what `bound` does.
std::expected<WindowList, DesktopError> wlrootsWindowsAfter(const TestCompositor::Bound& bound, int version = 3) {
  TestCompositor server;
  server.offer(zwlr_foreign_toplevel_manager_v1_interface, version, bound);
  server.start();
  Compositor compositor;
  return readWlrootsWindows(compositor);
}

TEST(WlrootsWindows, AreToldWithTheirNamesAndStates) {
  const auto list = wlrootsWindowsAfter([](wl_resource* manager) {
    WlrootsHandle(manager).title("One").appID("org.example.One").states({}).done();
    WlrootsHandle(manager).title("Two").appID("two").states({0, 1, 3}).done();
    WlrootsHandle(manager).title("Three").appID("three").states({2}).done();
  });
  ASSERT_TRUE(list);
  ASSERT_EQ(list->windows.size(), 3U);
  const auto& [one, two, three] = std::array{list->windows[0], list->windows[1], list->windows[2]};
  EXPECT_EQ(one.title, "One");
  EXPECT_EQ(one.applicationID, "org.example.One");
  EXPECT_EQ(one.windowClass, "org.example.One");
  EXPECT_FALSE(one.pid);
  EXPECT_TRUE(one.isOrdinary);
  EXPECT_FALSE(one.isHidden);
  EXPECT_EQ(two.title, "Two");
  EXPECT_TRUE(two.isHidden);
  EXPECT_EQ(three.applicationID, "three");
  EXPECT_FALSE(three.isHidden);
  EXPECT_EQ(list->active, three.id);
  EXPECT_TRUE(list->isComplete);
  EXPECT_THAT(list->stack, IsEmpty());
}

TEST(WlrootsWindows, AreNoneIfNoneIsOpen) {
  const auto list = wlrootsWindowsAfter([](wl_resource*) {});
  ASSERT_TRUE(list);
  EXPECT_THAT(list->windows, IsEmpty());
  EXPECT_FALSE(list->active);
}

TEST(WlrootsWindows, BelongToTheirParents) {
  const auto list = wlrootsWindowsAfter([](wl_resource* manager) {
    WlrootsHandle dialog(manager);
    WlrootsHandle owner(manager);
    dialog.title("Dialog").parent(owner).done();
    owner.title("Owner").done();
  });
  ASSERT_TRUE(list);
  ASSERT_EQ(list->windows.size(), 2U);
  EXPECT_EQ(list->windows[0].transientFor, list->windows[1].id);
  EXPECT_FALSE(list->windows[1].transientFor);
}

TEST(WlrootsWindows, AreReadEvenIfTheCompositorEndsTheirList) {
  const auto list = wlrootsWindowsAfter([](wl_resource* manager) {
    WlrootsHandle(manager).title("One").done();
    constexpr std::uint32_t finished = 1;
    wl_resource_post_event(manager, finished);
  });
  ASSERT_TRUE(list);
  EXPECT_THAT(list->windows, ElementsAre(Field(&Window::title, "One")));
}

TEST(WlrootsWindows, AreLeftOutIfTheyCloseMeanwhile) {
  const auto list = wlrootsWindowsAfter([](wl_resource* manager) {
    WlrootsHandle(manager).title("Closed").done().closed();
    WlrootsHandle(manager).title("Open").done();
  });
  ASSERT_TRUE(list);
  EXPECT_THAT(list->windows, ElementsAre(Field(&Window::title, "Open")));
}

TEST(WlrootsWindows, AreLeftOutUntilTheyHaveBeenTold) {
  const auto list = wlrootsWindowsAfter([](wl_resource* manager) { WlrootsHandle(manager).title("Half"); });
  ASSERT_TRUE(list);
  EXPECT_THAT(list->windows, IsEmpty());
}

/// Tells about a window when its client makes its second request after the list, which the first answer did not
/// satisfy.
struct LateWindow {
  wl_listener listener = {.link = {}, .notify = &LateWindow::requested};
  WlrootsHandle handle;
  int requests = 0;

  static void requested(wl_listener* listener, void*) {
    auto* const window = reinterpret_cast<LateWindow*>(listener);
    if (++window->requests == 2)
      window->handle.title("Late").done();
  }
};

TEST(WlrootsWindows, MayBeToldAMomentAfterTheyAreListed) {
  std::unique_ptr<LateWindow> late;
  const auto list = wlrootsWindowsAfter([&late](wl_resource* manager) {
    late = std::make_unique<LateWindow>(LateWindow{.handle = WlrootsHandle(manager)});
    wl_client_add_resource_created_listener(wl_resource_get_client(manager), &late->listener);
  });
  ASSERT_TRUE(list);
  EXPECT_THAT(list->windows, ElementsAre(Field(&Window::title, "Late")));
}

TEST(WlrootsWindows, MayBeToldByAnOldCompositor) {
  const auto list =
      wlrootsWindowsAfter([](wl_resource* manager) { WlrootsHandle(manager).title("Old").appID("old").done(); }, 1);
  ASSERT_TRUE(list);
  EXPECT_THAT(list->windows, ElementsAre(Field(&Window::title, "Old")));
}

TEST(WlrootsWindows, MayHaveAnyTitle) {
  const std::string title = "\xff line\nbreak \u202e" + std::string(3000, 'x');
  const auto list =
      wlrootsWindowsAfter([&](wl_resource* manager) { WlrootsHandle(manager).title(title.c_str()).done(); });
  ASSERT_TRUE(list);
  EXPECT_THAT(list->windows, ElementsAre(Field(&Window::title, title)));
}

TEST(WlrootsWindows, AreManyAtOnce) {
  constexpr int count = 2000;
  const auto list = wlrootsWindowsAfter([](wl_resource* manager) {
    for (int index = 0; index < count; ++index)
      WlrootsHandle(manager).title(std::to_string(index).c_str()).appID("many").done();
  });
  ASSERT_TRUE(list);
  ASSERT_EQ(list->windows.size(), static_cast<std::size_t>(count));
  EXPECT_EQ(list->windows.back().title, "1999");
}

TEST(WlrootsWindows, AreAbsentIfTheCompositorDoesNotOfferThem) {
  TestCompositor server;
  server.offer(ext_foreign_toplevel_list_v1_interface, 1, [](wl_resource*) {});
  server.start();
  Compositor compositor;
  const auto list = readWlrootsWindows(compositor);
  ASSERT_FALSE(list);
  EXPECT_TRUE(list.error().isAbsent);
  EXPECT_EQ(list.error().message, "The compositor does not offer zwlr_foreign_toplevel_manager_v1.");
}

TEST(WlrootsWindows, FailIfTheCompositorBreaksOff) {
  const auto list =
      wlrootsWindowsAfter([](wl_resource* manager) { wl_client_post_no_memory(wl_resource_get_client(manager)); });
  ASSERT_FALSE(list);
  EXPECT_FALSE(list.error().isAbsent);
  EXPECT_EQ(list.error().message, "The compositor has broken off the connection.");
}

TEST(WlrootsWindows, FailIfTheCompositorReportsAnErrorAfterAWindow) {
  const auto list = wlrootsWindowsAfter([](wl_resource* manager) {
    WlrootsHandle(manager).title("One").done();
    wl_resource_post_error(manager, 0, "No.");
  });
  ASSERT_FALSE(list);
  EXPECT_EQ(list.error().message, "The compositor has broken off the connection.");
}

std::atomic<int> signalsReceived = 0;

/// Whether a thread of this process waits for something.
bool isWaiting(pid_t thread) {
  std::string status;
  std::getline(std::ifstream("/proc/self/task/" + std::to_string(thread) + "/stat"), status);
  return status.contains(") S ");
}

TEST(WlrootsWindows, AreReadEvenIfASignalArrives) {
  struct sigaction counting = {};
  counting.sa_handler = [](int) { ++signalsReceived; };
  struct sigaction before = {};
  sigaction(SIGUSR1, &counting, &before);
  const pthread_t reader = pthread_self();
  const pid_t readerID = gettid();
  const auto list = wlrootsWindowsAfter([&](wl_resource* manager) {
    while (!isWaiting(readerID))
      std::this_thread::yield();
    pthread_kill(reader, SIGUSR1);
    while (signalsReceived == 0)
      std::this_thread::yield();
    WlrootsHandle(manager).title("One").done();
  });
  sigaction(SIGUSR1, &before, nullptr);
  ASSERT_TRUE(list) << list.error().message;
  EXPECT_THAT(list->windows, ElementsAre(Field(&Window::title, "One")));
}

// The test starts once more, since a process loads the library once.
TEST(WlrootsWindowsDeathTest, AreUnknownIfTheLibraryCannotBeLoaded) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const TestSupport::TemporaryFolder folder;
  folder.write("libwayland-client.so.0", "This is no library.");
  const TestSupport::EnvironmentVariable libraries("LD_LIBRARY_PATH", folder.path());
  const auto read = [] {
    const TestCompositor server;
    Compositor compositor;
    const auto list = readWlrootsWindows(compositor);
    std::fputs(list ? "listed" : list.error().message.c_str(), stderr);
    std::_Exit(0);
  };
  EXPECT_EXIT(read(), testing::ExitedWithCode(0), "^libwayland-client.so.0 is not installed or cannot be loaded.$");
}

TEST(WlrootsWindows, FailOnceIfTheCompositorDoesNotAnswer) {
  const TestCompositor server;
  Compositor compositor(50ms);
  const auto list = readWlrootsWindows(compositor);
  ASSERT_FALSE(list);
  EXPECT_FALSE(list.error().isAbsent);
  EXPECT_EQ(list.error().message, "The compositor does not answer.");
  // The second source fails with the connection and does not wait again.
  EXPECT_EQ(readListedToplevels(compositor).error().message, "The compositor does not answer.");
}

TEST(WlrootsWindows, FailIfTheCompositorFallsSilent) {
  // It disconnects after the server has read everything.
  Compositor compositor(50ms);
  std::atomic<int> requests = 0;
  std::promise<void> isOver;
  {
    TestCompositor server;
    server.offer(zwlr_foreign_toplevel_manager_v1_interface, 3, [&](wl_resource*) {
      if (++requests == 1)
        isOver.get_future().wait();
    });
    server.start();
    EXPECT_EQ(readWlrootsWindows(compositor).error().message, "The compositor does not answer.");
    EXPECT_EQ(readWlrootsWindows(compositor).error().message, "The compositor does not answer.");
    isOver.set_value();
  }
  EXPECT_EQ(requests, 1) << "it is not asked again";
}

TEST(ListedToplevels, AreToldWithTheirNames) {
  TestCompositor server;
  server.offer(ext_foreign_toplevel_list_v1_interface, 1, [](wl_resource* list) {
    for (const char* name : {"first", "second"}) {
      wl_resource* const handle = TestSupport::makeObject(list, ext_foreign_toplevel_handle_v1_interface);
      wl_resource_post_event(list, 0, handle);
      wl_resource_post_event(handle, 4, "identifier");
      wl_resource_post_event(handle, 2, "title");
      wl_resource_post_event(handle, 3, name);
      wl_resource_post_event(handle, 1);
    }
    wl_resource* const closed = TestSupport::makeObject(list, ext_foreign_toplevel_handle_v1_interface);
    wl_resource_post_event(list, 0, closed);
    wl_resource_post_event(closed, 1);
    wl_resource_post_event(closed, 0);
  });
  server.start();
  Compositor compositor;
  const auto list = readListedToplevels(compositor);
  ASSERT_TRUE(list);
  ASSERT_EQ(list->windows.size(), 2U);
  EXPECT_EQ(list->windows[0].title, "title");
  EXPECT_EQ(list->windows[0].applicationID, "first");
  EXPECT_EQ(list->windows[1].windowClass, "second");
}

}  // namespace
