#include <algorithm>
#include <functional>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/Windows/Wayland/Compositor.h"
#include "DesktopSupport/Windows/Wayland/PlasmaWindows.h"
#include "DesktopSupport/Windows/Wayland/Protocols.h"
#include "Tests/Support/TestCompositor.h"

namespace {

using namespace DesktopSupport;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

// What the protocol calls by numbers.
namespace Request {
constexpr std::uint32_t getWindow = 1;
constexpr std::uint32_t getWindowByUUID = 2;
constexpr std::uint32_t getStackingOrder = 3;
}  // namespace Request
namespace State {
constexpr std::uint32_t active = 0x1;
constexpr std::uint32_t minimized = 0x2;
constexpr std::uint32_t maximized = 0x4;
constexpr std::uint32_t skipTaskbar = 0x1000;
}  // namespace State

/// A window's object, and what the compositor tells through it.
class Handle {
 public:
  explicit Handle(wl_resource* object) : object_(object) {}

  Handle& title(const char* text) { return post(0, text); }
  Handle& appID(const char* text) { return post(1, text); }
  Handle& states(std::uint32_t states) { return post(2, states); }
  Handle& unmapped() { return post(5); }
  Handle& initialState() { return post(6); }
  Handle& parent(wl_resource* parent) { return post(7, parent); }
  Handle& pid(std::uint32_t pid) { return post(10, pid); }
  Handle& resourceName(const char* text) { return post(16, text); }

  [[nodiscard]] wl_resource* object() const { return object_; }

 private:
  template <typename... Arguments>
  Handle& post(std::uint32_t event, Arguments... arguments) {
    wl_resource_post_event(object_, event, arguments...);
    return *this;
  }

  wl_resource* object_;
};

using Tell = std::function<void(Handle window)>;

/// A window of which nothing is told but its title.
Tell titled(std::string title) {
  return [title = std::move(title)](Handle window) { window.title(title.c_str()).states(0).initialState(); };
}

/// A compositor that lets everybody see its windows. They have the numbers from 1 on and the same texts as UUIDs with
/// "uuid-" before them.
class PlasmaCompositor {
 public:
  explicit PlasmaCompositor(std::vector<Tell> windows, int version = 16) : windows_(std::move(windows)) {
    server_.offer(org_kde_plasma_window_management_interface, version, [this](wl_resource* manager) { list(manager); });
  }

  /// Tells the numbers of the windows in stacking order. If none is told, it is that in which they appeared.
  void stack(std::vector<std::uint32_t> numbers) { stacks_.push_back(std::move(numbers)); }

  std::expected<WindowList, DesktopError> read() {
    if (stacks_.empty()) {
      stacks_.emplace_back(windows_.size());
      std::iota(stacks_.back().begin(), stacks_.back().end(), 1);
    }
    server_.start();
    Compositor compositor;
    return readPlasmaWindows(compositor);
  }

  /// Says that there is one more window.
  static void announce(wl_resource* manager, std::uint32_t number) {
    if (wl_resource_get_version(manager) < 13)
      wl_resource_post_event(manager, 1, number);
    else
      wl_resource_post_event(manager, 4, number, uuid(number).c_str());
  }

 private:
  static std::string uuid(std::uint32_t number) { return "uuid-" + std::to_string(number); }

  void list(wl_resource* manager) {
    wl_resource_set_dispatcher(manager, dispatch, this, nullptr, nullptr);
    for (std::uint32_t number = 1; number <= windows_.size(); ++number)
      announce(manager, number);
    const int version = wl_resource_get_version(manager);
    if (version < 11 || version >= 17)
      return;
    for (std::vector<std::uint32_t>& stack : stacks_) {
      wl_array numbers = {.size = stack.size() * sizeof(std::uint32_t), .alloc = 0, .data = stack.data()};
      wl_resource_post_event(manager, 2, &numbers);
    }
  }

  static int dispatch(const void* compositor, void* manager, std::uint32_t request, const wl_message*,
                      wl_argument* arguments) {
    const auto& self = *static_cast<const PlasmaCompositor*>(compositor);
    auto* const object = static_cast<wl_resource*>(manager);
    if (request == Request::getWindow)
      self.tell(object, arguments[0].n, std::to_string(arguments[1].u));
    else if (request == Request::getWindowByUUID)
      self.tell(object, arguments[0].n, std::string(arguments[1].s).substr(uuid(0).size() - 1));
    else if (request == Request::getStackingOrder)
      self.tellStack(object, arguments[0].n);
    return 0;
  }

  void tell(wl_resource* manager, std::uint32_t object, const std::string& number) const {
    windows_.at(std::stoul(number) - 1)(Handle(wl_resource_create(
        wl_resource_get_client(manager), &org_kde_plasma_window_interface, wl_resource_get_version(manager), object)));
  }

  void tellStack(wl_resource* manager, std::uint32_t object) const {
    wl_resource* const order =
        wl_resource_create(wl_resource_get_client(manager), &org_kde_plasma_stacking_order_interface,
                           wl_resource_get_version(manager), object);
    for (const std::uint32_t number : stacks_.back())
      wl_resource_post_event(order, 0, uuid(number).c_str());
    wl_resource_post_event(order, 1);
    wl_resource_destroy(order);
  }

  std::vector<Tell> windows_;
  std::vector<std::vector<std::uint32_t>> stacks_;
  // The last, since its thread uses the others.
  TestSupport::TestCompositor server_;
};

std::vector<std::string> titlesOf(const std::expected<WindowList, DesktopError>& list) {
  if (!list)
    return {list.error().message};
  std::vector<std::string> titles;
  for (const Window& window : list->windows)
    titles.push_back(window.title);
  return titles;
}

std::vector<std::string> stackOf(const std::expected<WindowList, DesktopError>& list) {
  if (!list)
    return {list.error().message};
  std::vector<std::string> titles;
  for (const WindowID id : list->stack)
    titles.push_back(std::ranges::find(list->windows, id, &Window::id)->title);
  return titles;
}

TEST(PlasmaWindows, AreToldWithAllThatIsKnown) {
  PlasmaCompositor compositor({[](Handle window) {
    window.appID("org.example.Editor").pid(4711).title("A text").states(State::maximized).initialState();
    window.resourceName("editor");
  }});
  const auto list = compositor.read();
  ASSERT_TRUE(list) << list.error().message;
  ASSERT_EQ(list->windows.size(), 1U);
  const Window& window = list->windows.front();
  EXPECT_EQ(window.title, "A text");
  EXPECT_EQ(window.applicationID, "org.example.Editor");
  EXPECT_EQ(window.windowClass, "org.example.Editor");
  EXPECT_EQ(window.instance, "editor");
  EXPECT_EQ(window.pid, 4711);
  EXPECT_TRUE(window.isOrdinary);
  EXPECT_FALSE(window.isHidden);
  EXPECT_FALSE(list->active);
  EXPECT_TRUE(list->isComplete);
}

TEST(PlasmaWindows, HaveNoProcessIfNoneIsTold) {
  EXPECT_EQ(PlasmaCompositor({titled("One")}).read()->windows.front().pid, std::nullopt);
}

TEST(PlasmaWindows, HaveTheirStates) {
  PlasmaCompositor compositor({
      [](Handle window) { window.states(State::minimized).initialState(); },
      [](Handle window) { window.states(State::active).initialState(); },
      [](Handle window) { window.states(State::skipTaskbar).initialState(); },
  });
  const auto list = compositor.read();
  ASSERT_TRUE(list) << list.error().message;
  ASSERT_EQ(list->windows.size(), 3U);
  EXPECT_TRUE(list->windows[0].isHidden);
  EXPECT_FALSE(list->windows[1].isHidden);
  EXPECT_EQ(list->active, list->windows[1].id);
  EXPECT_TRUE(list->windows[1].isOrdinary);
  EXPECT_FALSE(list->windows[2].isOrdinary);
}

TEST(PlasmaWindows, BelongToTheirParents) {
  wl_resource* owner = nullptr;
  PlasmaCompositor compositor({
      [&](Handle window) {
        owner = window.object();
        window.title("Owner").parent(nullptr).initialState();
      },
      [&](Handle window) { window.title("Dialog").parent(owner).initialState(); },
  });
  const auto list = compositor.read();
  ASSERT_TRUE(list) << list.error().message;
  ASSERT_EQ(list->windows.size(), 2U);
  EXPECT_FALSE(list->windows[0].transientFor);
  EXPECT_EQ(list->windows[1].transientFor, list->windows[0].id);
}

TEST(PlasmaWindows, AreLeftOutIfTheyDisappearMeanwhile) {
  PlasmaCompositor compositor({
      titled("One"),
      [](Handle window) { window.states(0).initialState().unmapped(); },
      titled("Three"),
  });
  const auto list = compositor.read();
  EXPECT_THAT(titlesOf(list), ElementsAre("One", "Three"));
  EXPECT_THAT(stackOf(list), ElementsAre("One", "Three"));
}

TEST(PlasmaWindows, AreLeftOutUntilTheyHaveBeenTold) {
  PlasmaCompositor compositor({[](Handle window) { window.title("Half").states(State::active); }});
  const auto list = compositor.read();
  EXPECT_THAT(titlesOf(list), IsEmpty());
  EXPECT_FALSE(list->active);
}

TEST(PlasmaWindows, AreNoneIfNoneIsOpen) {
  const auto list = PlasmaCompositor(std::vector<Tell>{}).read();
  EXPECT_THAT(titlesOf(list), IsEmpty());
  EXPECT_TRUE(list);
}

TEST(PlasmaWindows, HaveTheirStackingOrderInEveryVersion) {
  for (const int version : {11, 12, 13, 16, 17}) {
    PlasmaCompositor compositor({titled("One"), titled("Two"), titled("Three")}, version);
    compositor.stack({3, 1, 2});
    EXPECT_THAT(stackOf(compositor.read()), ElementsAre("Three", "One", "Two")) << version;
  }
}

TEST(PlasmaWindows, HaveTheStackingOrderThatIsToldLast) {
  PlasmaCompositor compositor({titled("One"), titled("Two"), titled("Three")});
  compositor.stack({1, 2, 3});
  compositor.stack({2, 3, 1});
  EXPECT_THAT(stackOf(compositor.read()), ElementsAre("Two", "Three", "One"));
}

TEST(PlasmaWindows, MayHaveNoStackingOrder) {
  for (const int version : {4, 10}) {
    const auto list = PlasmaCompositor({titled("One"), titled("Two")}, version).read();
    EXPECT_THAT(titlesOf(list), ElementsAre("One", "Two")) << version;
    EXPECT_THAT(stackOf(list), IsEmpty()) << version;
  }
}

TEST(PlasmaWindows, AreManyAtOnce) {
  const auto list = PlasmaCompositor(std::vector<Tell>(2000, titled("Many")), 17).read();
  ASSERT_TRUE(list) << list.error().message;
  EXPECT_EQ(list->windows.size(), 2000U);
  EXPECT_EQ(list->stack.size(), 2000U);
}

TEST(PlasmaWindows, HaveTheirOwnTitlesWithoutNumbers) {
  PlasmaCompositor compositor({titled("Home"), titled("Home <2>"), titled("Home <13>\u200E")});
  EXPECT_THAT(titlesOf(compositor.read()), ElementsAre("Home", "Home", "Home"));
}

TEST(PlasmaWindows, KeepTitlesThatOnlyLookNumbered) {
  const std::vector<std::string> titles = {"Home",    "Alone <2>", "Home <>", "Home <2> ", "Home <x>", "Home<2>",
                                           "Home <2", "",          ">",       " <2>x",     "Home <2x"};
  std::vector<Tell> windows;
  for (const std::string& title : titles)
    windows.push_back(titled(title));
  EXPECT_THAT(titlesOf(PlasmaCompositor(windows).read()), testing::ElementsAreArray(titles));
}

TEST(PlasmaWindows, MayHaveAnyTitle) {
  const std::string title = "\xff line\nbreak \u202e" + std::string(3000, 'x');
  EXPECT_THAT(titlesOf(PlasmaCompositor({titled(title)}).read()), ElementsAre(title));
}

TEST(PlasmaWindows, AreAbsentIfTheCompositorDoesNotOfferThem) {
  TestSupport::TestCompositor server;
  server.start();
  Compositor compositor;
  const auto list = readPlasmaWindows(compositor);
  ASSERT_FALSE(list);
  EXPECT_TRUE(list.error().isAbsent);
  EXPECT_EQ(list.error().message, "The compositor does not offer org_kde_plasma_window_management to this program.");
}

TEST(PlasmaWindows, AreAbsentIfTheCompositorIsTooOld) {
  const auto list = PlasmaCompositor({titled("One")}, 3).read();
  ASSERT_FALSE(list);
  EXPECT_TRUE(list.error().isAbsent);
}

TEST(PlasmaWindows, FailIfTheCompositorBreaksOff) {
  PlasmaCompositor compositor(
      {[](Handle window) { wl_client_post_no_memory(wl_resource_get_client(window.object())); }});
  const auto list = compositor.read();
  ASSERT_FALSE(list);
  EXPECT_FALSE(list.error().isAbsent);
  EXPECT_EQ(list.error().message, "The compositor has broken off the connection.");
}

TEST(PlasmaWindows, FailIfTheCompositorDoesNotAnswer) {
  const TestSupport::TestCompositor server;
  Compositor compositor(50ms);
  const auto list = readPlasmaWindows(compositor);
  ASSERT_FALSE(list);
  EXPECT_FALSE(list.error().isAbsent);
  EXPECT_EQ(list.error().message, "The compositor does not answer.");
}

}  // namespace
