// Runs a command that shows a window, closes the window, and repeats. Prints a row below those of WholeProcesses with
// medians: the time from the start until the window is on screen, and the processor time and peak memory of the
// process.

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <xcb/xcb.h>

#include "Benchmarks/Candidate.h"
#include "Benchmarks/MeasuredProcess.h"
#include "Tests/Support/TestDesktop.h"

namespace {

using Benchmarks::MeasuredProcess;
using Benchmarks::Measurement;
using TestSupport::TestDesktop;

void require(bool holds, const char* what) {
  if (holds)
    return;
  std::fprintf(stderr, "failed: %s\n", what);
  std::exit(1);
}

/// The window manager's frame around a window. The window is on screen when the frame is mapped.
void watchFrames(const TestDesktop& desktop) {
  const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
  xcb_change_window_attributes(desktop.connection(), desktop.root(), XCB_CW_EVENT_MASK, &events);
}

bool isOnScreen(const TestDesktop& desktop, xcb_window_t window) {
  const auto request = xcb_get_window_attributes(desktop.connection(), window);
  const std::unique_ptr<xcb_get_window_attributes_reply_t, decltype(&std::free)> reply(
      xcb_get_window_attributes_reply(desktop.connection(), request, nullptr), &std::free);
  return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

Measurement measureShowing(const TestDesktop& desktop, const std::string& title, const std::string& command) {
  const std::size_t others = desktop.clients().size();
  const MeasuredProcess process(command);
  const auto window = desktop.waitForTitle(title);
  require(window && desktop.waitUntil([&] { return isOnScreen(desktop, *window); }), "no window came");
  const double shown = process.milliseconds();
  // Wait until it is drawn, which takes memory too.
  require(desktop.waitUntil([&] { return desktop.isReady(*window); }), "the window did not become ready");
  desktop.askWindowManager(*window, "_NET_CLOSE_WINDOW");
  Measurement measurement = process.end();
  measurement.milliseconds = shown;
  // The next window may have the same id.
  require(desktop.waitUntil([&] { return desktop.clients().size() == others; }), "the window stayed in the list");
  return measurement;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) {
    std::fprintf(stderr, "Usage: %s RUNS NAME TITLE COMMAND\n", argv[0]);
    return 2;
  }
  const TestDesktop desktop;
  watchFrames(desktop);
  const std::string title = argv[3];
  const std::string command = argv[4];
  std::vector<Benchmarks::Candidate> candidates = {{argv[2], [&] { return measureShowing(desktop, title, command); }}};
  Benchmarks::measureInTurn(candidates, std::atoi(argv[1]));
  Benchmarks::printRow(candidates.front());
}
