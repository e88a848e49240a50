// The native messaging host: a browser starts it for its extension, with the extension's name as an argument.

#include <csignal>
#include <cstdio>
#include <cstring>
#include <string>

#include <unistd.h>

#include "Companions/Browser/Host/Companion.h"
#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/System/DisplayableText.h"

namespace {

constexpr const char* usage =
    "Usage: gleanery-tabs EXTENSION\n"
    "\n"
    "A browser starts this program for Gleanery's extension, which it connects with standard input and\n"
    "output. The program tells the windows and tabs of the browser to those who ask for them on the\n"
    "session bus. It ends when the browser closes its standard input.\n"
    "\n"
    "  --help     show this text\n"
    "  --version  show the version\n";

int fail(const std::string& message, int status) {
  std::fprintf(stderr, "gleanery-tabs: %s\n", DesktopSupport::printable(message).c_str());
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  // Chromium gives the extension's origin alone, Firefox the file that describes this program and then the
  // extension's id.
  const std::string argument = argc > 1 ? argv[argc == 3 ? 2 : 1] : "";
  if (argument == "--help") {
    std::fputs(usage, stdout);
    return 0;
  }
  if (argument == "--version") {
    std::puts("gleanery-tabs " DESKLOOM_VERSION);
    return 0;
  }
  if (argument.empty() || argument.starts_with('-'))
    return fail("it is started by a browser (see --help)", 2);

  // A browser that is gone is noticed by the failing write.
  std::signal(SIGPIPE, SIG_IGN);
  const auto bus = DesktopSupport::SessionBus::connect();
  if (!bus)
    return fail(bus.error().message, 1);
  const auto companion = BrowserCompanion::Companion::create(
      *bus, {.input = STDIN_FILENO, .output = STDOUT_FILENO, .browser = getppid(), .extension = argument});
  if (!companion)
    return fail(companion.error(), 1);
  const auto served = (*companion)->run();
  return served ? 0 : fail(served.error(), 1);
}
