// Windows with numbers and choices, with the real module and a user with a keyboard.

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <glib.h>
#include <gmock/gmock.h>
#include <unistd.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include "Linux/Bundle.h"
#include "Linux/Windows.h"
#include "Platform/Fake/FakeServices.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/ScreenReader.h"
#include "Tests/Support/TestDesktop.h"
#include "Tests/Support/TestInput.h"

using Platform::Choice;
using Platform::NumberField;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::AccessibleItem;
using TestSupport::TestDesktop;

namespace {

/// Observes windows that the window manager does not manage.
class Popups {
 public:
  Popups() {
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(desktop_.connection(), desktop_.root(), XCB_CW_EVENT_MASK, &mask);
    desktop_.synchronize();
  }

  [[nodiscard]] xcb_window_t awaitShown() const {
    const auto isShown = [](const auto& map) { return map.override_redirect != 0; };
    return await<xcb_map_notify_event_t>(XCB_MAP_NOTIFY, isShown);
  }

  void awaitHidden(xcb_window_t popup) const {
    const auto isIt = [popup](const auto& unmap) { return unmap.window == popup; };
    await<xcb_unmap_notify_event_t>(XCB_UNMAP_NOTIFY, isIt);
  }

 private:
  template <typename Event>
  xcb_window_t await(unsigned type, const auto& isIt) const {
    struct Free {
      void operator()(void* memory) const { std::free(memory); }
    };
    while (const std::unique_ptr<xcb_generic_event_t, Free> event{xcb_wait_for_event(desktop_.connection())}) {
      constexpr unsigned sentByClient = 0x80;
      const auto* candidate = reinterpret_cast<const Event*>(event.get());
      if ((event->response_type & ~sentByClient) == type && isIt(*candidate))
        return candidate->window;
    }
    throw std::runtime_error("the X server is gone");
  }

  TestDesktop desktop_;
};

/// A user of the window, with a connection of their own.
class User {
 public:
  User() {
    const auto window = desktop_.waitForTitle("Settings");
    if (!window)
      throw std::runtime_error("there is no window");
    window_ = *window;
    desktop_.watch(window_);
    EXPECT_TRUE(desktop_.waitUntil([&] { return desktop_.isReady(window_); }));
  }

  void press(std::initializer_list<std::uint32_t> keysyms) const {
    for (const std::uint32_t keysym : keysyms)
      input_.press(keysym);
  }

  /// Closes the window with the window manager's button, as a list that is still open could take a key.
  void close() const { desktop_.askWindowManager(window_, "_NET_CLOSE_WINDOW"); }

  /// Opens the list of options that has the keyboard, and selects the last one, which is not the first.
  void chooseLast(const std::string& option) const {
    const Popups popups;
    press({XKB_KEY_space});
    const xcb_window_t list = popups.awaitShown();
    EXPECT_TRUE(reader_.waitUntil(
        [&] { return std::ranges::any_of(items(), [&](const auto& item) { return item.name == option; }); }));
    press({XKB_KEY_End, XKB_KEY_Return});
    popups.awaitHidden(list);
  }

  /// What a screen reader reads in the window.
  [[nodiscard]] std::vector<AccessibleItem> items() const {
    const auto window = reader_.awaitWindow(getpid());
    return window ? window->items() : std::vector<AccessibleItem>();
  }

 private:
  TestDesktop desktop_;
  TestSupport::TestInput input_{desktop_};
  TestSupport::ScreenReader reader_;
  xcb_window_t window_ = XCB_WINDOW_NONE;
};

class WindowsTest : public testing::Test, public Platform::WindowDelegate {
 protected:
  void TearDown() override {
    EXPECT_TRUE(desktop.waitUntil([this] { return desktop.clients().empty(); }));
    EXPECT_THAT(log.messages, IsEmpty());
  }

  void windowWillClose(const Platform::Notification& /*notification*/) override {
    events.emplace_back("close");
    isClosed = true;
  }

  /// Shows a window to a user who does what `use` does, until it is closed.
  void show(std::vector<Platform::WindowElement> elements, const std::function<void(const User&)>& use) {
    const auto window = windows.makeWindow({.title = "Settings", .elements = std::move(elements)});
    ASSERT_TRUE(window);
    show(*window, use);
  }

  void show(Platform::Window& window, const std::function<void(const User&)>& use) {
    window.setDelegate(this);
    window.makeKeyAndOrderFront();
    isClosed = false;
    const std::jthread user([&] { use(User()); });
    while (!isClosed)
      g_main_context_iteration(nullptr, TRUE);
  }

  NumberField number(int value, int minimum, int maximum) {
    return {"Number", value, minimum, maximum, [this](int entered) { events.push_back(std::to_string(entered)); }};
  }

  Choice choice(std::vector<std::string> options, std::size_t selected) {
    return {"Kind", std::move(options), selected,
            [this](std::size_t index) { events.push_back("option " + std::to_string(index)); }};
  }

  /// The toolkit can be opened once in a process.
  static Linux::Windows& openWindows() {
    static const TestSupport::EnvironmentVariable accessibility(TestSupport::ScreenReader::accessibility.first,
                                                                TestSupport::ScreenReader::accessibility.second);
    static const Linux::Bundle bundle(std::filesystem::path(DESKLOOM_WINDOWS_PROGRAM).parent_path());
    static Linux::Windows opened(bundle, log);
    return opened;
  }

  static inline Platform::Fake::FakeLog log{nullptr};
  TestDesktop desktop;
  Linux::Windows& windows = openWindows();
  std::vector<std::string> events;
  bool isClosed = false;
};

TEST_F(WindowsTest, TheKeyboardChangesANumberStepByStep) {
  show({Platform::Text{"How many"}, number(10, 1, 12)},
       [](const User& user) { user.press({XKB_KEY_Up, XKB_KEY_Up, XKB_KEY_Up, XKB_KEY_Down, XKB_KEY_Escape}); });
  EXPECT_THAT(events, ElementsAre("11", "12", "11", "close"));
}

TEST_F(WindowsTest, ANumberCanBeTypedAndCountsIfTheWindowIsClosedAfterIt) {
  show({number(10, 1, 99)},
       [](const User& user) { user.press({XKB_KEY_4, XKB_KEY_2, XKB_KEY_Return, XKB_KEY_BackSpace, XKB_KEY_Escape}); });
  EXPECT_THAT(events, ElementsAre("42", "4", "close")) << "the old number is selected, so that typing replaces it";
}

TEST_F(WindowsTest, ATypedNumberOutsideTheBoundsIsTakenToTheNearerOne) {
  show({number(10, 5, 20)}, [](const User& user) { user.press({XKB_KEY_9, XKB_KEY_9, XKB_KEY_Escape}); });
  show({number(10, 5, 20)}, [](const User& user) { user.press({XKB_KEY_1, XKB_KEY_Escape}); });
  EXPECT_THAT(events, ElementsAre("20", "close", "5", "close"));
}

TEST_F(WindowsTest, NumbersReachAsFarAsTheirTypeDoes) {
  show({number(INT_MAX - 1, INT_MIN, INT_MAX)},
       [](const User& user) { user.press({XKB_KEY_Up, XKB_KEY_Up, XKB_KEY_Escape}); });
  EXPECT_THAT(events, ElementsAre(std::to_string(INT_MAX), "close"));
}

TEST_F(WindowsTest, ANumberThatCannotBeIsShownAsTheNearestOneAndBoundsTheWrongWayRoundAsTheMinimum) {
  show({number(100, 1, 12), number(3, 8, 2)}, [](const User& user) {
    user.press({XKB_KEY_Up, XKB_KEY_Down, XKB_KEY_Tab, XKB_KEY_Up, XKB_KEY_Down, XKB_KEY_Escape});
  });
  EXPECT_THAT(events, ElementsAre("11", "close"));
}

TEST_F(WindowsTest, TheKeyboardGoesFromOneControlToTheNext) {
  show({number(1, 1, 9), number(5, 1, 9)},
       [](const User& user) { user.press({XKB_KEY_Up, XKB_KEY_Tab, XKB_KEY_Up, XKB_KEY_Escape}); });
  EXPECT_THAT(events, ElementsAre("2", "6", "close"));
}

TEST_F(WindowsTest, TheKeyboardSelectsAnOption) {
  show({choice({"All", "Images", "Music"}, 1)}, [](const User& user) {
    user.chooseLast("Music");
    user.close();
  });
  EXPECT_THAT(events, ElementsAre("option 2", "close"));
}

TEST_F(WindowsTest, AnOptionThatDoesNotExistIsTheFirst) {
  show({choice({"All", "Images"}, 7)}, [](const User& user) {
    user.chooseLast("Images");
    user.close();
  });
  EXPECT_THAT(events, ElementsAre("option 1", "close"));
}

TEST_F(WindowsTest, WithoutOptionsThereIsNothingToChoose) {
  show({choice({}, 3)}, [](const User& user) { user.press({XKB_KEY_Down, XKB_KEY_Escape}); });
  EXPECT_THAT(events, ElementsAre("close"));
}

TEST_F(WindowsTest, TheCallbacksMayBeEmpty) {
  show({NumberField{.label = "Number", .value = 1, .minimum = 1, .maximum = 9}},
       [](const User& user) { user.press({XKB_KEY_Up, XKB_KEY_Escape}); });
  show({Choice{"Kind", {"a", "b"}}}, [](const User& user) {
    user.chooseLast("b");
    user.close();
  });
  EXPECT_THAT(events, ElementsAre("close", "close"));
}

TEST_F(WindowsTest, TheLevelReadsBackOnAWindowThatIsShownToo) {
  const auto window = windows.makeWindow({.title = "Settings", .elements = {}});
  ASSERT_TRUE(window);
  EXPECT_EQ(window->level(), Platform::normalWindowLevel);
  for (const int level : {-1, Platform::normalWindowLevel, Platform::floatingWindowLevel + 1}) {
    window->setLevel(level);
    EXPECT_EQ(window->level(), level);
  }
  show(*window, [](const User& user) { user.press({XKB_KEY_Escape}); });
  EXPECT_EQ(window->level(), Platform::floatingWindowLevel + 1);
}

TEST_F(WindowsTest, ScreenReadersReadAControlWithItsLabel) {
  std::vector<AccessibleItem> items;
  show({number(10, 1, 99), choice({"All", "Images"}, 1)}, [&](const User& user) {
    items = user.items();
    user.press({XKB_KEY_Escape});
  });
  EXPECT_THAT(items, Contains(AccessibleItem{"spin button", "Number", ""}));
  EXPECT_THAT(items, Contains(AccessibleItem{"combo box", "Kind", ""}));
}

}  // namespace
