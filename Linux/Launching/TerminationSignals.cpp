#include "Linux/Launching/TerminationSignals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <utility>

#include <glib-unix.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace Linux {

namespace {

constexpr std::array terminationSignals = {SIGTERM, SIGHUP};

/// Wakes the main context. GLib has a source for signals, but while the main context waits for somebody, in a call, it
/// would swallow the second one.
volatile std::sig_atomic_t wakeUp = -1;

void endAtOnceFromHereOn() {
  for (const int signal : terminationSignals) {
    struct sigaction current = {};
    if (sigaction(signal, nullptr, &current) == 0 && current.sa_handler != SIG_IGN)
      std::signal(signal, SIG_DFL);
  }
}

void noteFirstSignal(int /*signal*/) {
  const int problem = errno;
  endAtOnceFromHereOn();
  constexpr std::uint64_t one = 1;
  [[maybe_unused]] const auto written = write(wakeUp, &one, sizeof one);
  errno = problem;
}

void takeSignals() {
  struct sigaction action = {};
  action.sa_handler = &noteFirstSignal;
  action.sa_flags = SA_RESTART;
  for (const int signal : terminationSignals) {
    struct sigaction current = {};
    if (sigaction(signal, nullptr, &current) == 0 && current.sa_handler != SIG_IGN)
      sigaction(signal, &action, nullptr);
  }
}

}  // namespace

TerminationSignals::TerminationSignals(std::function<void()> onSignal) : onSignal_(std::move(onSignal)) {
  wakeUp = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  if (wakeUp < 0)
    return;
  source_ = g_unix_fd_add(wakeUp, G_IO_IN, &TerminationSignals::signalCame, this);
  takeSignals();
}

TerminationSignals::~TerminationSignals() {
  if (wakeUp < 0)
    return;
  endAtOnceFromHereOn();
  if (source_ != 0)
    g_source_remove(source_);
  close(wakeUp);
  wakeUp = -1;
}

gboolean TerminationSignals::signalCame(gint /*descriptor*/, GIOCondition /*condition*/, gpointer self) {
  auto* signals = static_cast<TerminationSignals*>(self);
  signals->source_ = 0;
  signals->onSignal_();
  return G_SOURCE_REMOVE;
}

}  // namespace Linux
