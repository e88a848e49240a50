#include "Linux/Launching/Signals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <utility>

#include <glib-unix.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace Linux {

namespace {

void raiseEvent(int event) {
  constexpr std::uint64_t one = 1;
  [[maybe_unused]] const auto written = write(event, &one, sizeof one);
}

constexpr std::array terminationSignals = {SIGTERM, SIGHUP};

/// The event that wakes the main context. GLib's own source for signals would lose the second signal while the main
/// thread waits in a call.
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
  raiseEvent(wakeUp);
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

/// What the handler of SIGABRT uses: two events, and the thread whose abort is not put off.
struct AbortEvents {
  int began = -1;
  int mayGoOn = -1;
  pthread_t servingThread = {};
};
AbortEvents abortEvents;

void putOffAbort(int signal) {
  if (pthread_equal(pthread_self(), abortEvents.servingThread) == 0) {
    raiseEvent(abortEvents.began);
    pollfd event = {.fd = abortEvents.mayGoOn, .events = POLLIN, .revents = 0};
    poll(&event, 1, AbortNotice::longestDelayInMilliseconds);
  }
  // This ends the process, as the handler is reset. `abort` would do it anyway, but not a signal from another process.
  std::raise(signal);
}

void takeAborts() {
  struct sigaction action = {};
  action.sa_handler = &putOffAbort;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  sigaction(SIGABRT, &action, nullptr);
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

AbortNotice::AbortNotice(GMainContext* context, pthread_t servingThread, std::function<void()> beforeAbort)
    : beforeAbort_(std::move(beforeAbort)) {
  abortEvents = {.began = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK),
                 .mayGoOn = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK),
                 .servingThread = servingThread};
  if (abortEvents.began < 0 || abortEvents.mayGoOn < 0)
    return;
  source_ = g_unix_fd_source_new(abortEvents.began, G_IO_IN);
  g_source_set_callback(source_, G_SOURCE_FUNC(&AbortNotice::abortBegan), this, nullptr);
  g_source_attach(source_, context);
  takeAborts();
}

AbortNotice::~AbortNotice() {
  std::signal(SIGABRT, SIG_DFL);
  if (source_ != nullptr) {
    g_source_destroy(source_);
    g_source_unref(source_);
  }
  close(abortEvents.began);
  close(abortEvents.mayGoOn);
}

gboolean AbortNotice::abortBegan(gint /*descriptor*/, GIOCondition /*condition*/, gpointer self) {
  static_cast<AbortNotice*>(self)->beforeAbort_();
  raiseEvent(abortEvents.mayGoOn);
  return G_SOURCE_REMOVE;
}

}  // namespace Linux
