#include "Linux/Launching/AbortNotice.h"

#include <csignal>
#include <cstdint>
#include <utility>

#include <glib-unix.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace Linux {

namespace {

/// What the signal's handler may use.
struct Signals {
  int began = -1;
  int mayGoOn = -1;
  pthread_t servingThread = {};
};
Signals signals;

void raiseEvent(int event) {
  constexpr std::uint64_t one = 1;
  [[maybe_unused]] const auto written = write(event, &one, sizeof one);
}

void putOff(int signal) {
  if (pthread_equal(pthread_self(), signals.servingThread) == 0) {
    raiseEvent(signals.began);
    pollfd event = {.fd = signals.mayGoOn, .events = POLLIN, .revents = 0};
    poll(&event, 1, AbortNotice::longestDelayInMilliseconds);
  }
  // `abort` ends the process by itself after this; a signal from another process does not. The handler is reset.
  std::raise(signal);
}

void takeAborts() {
  struct sigaction action = {};
  action.sa_handler = &putOff;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  sigaction(SIGABRT, &action, nullptr);
}

}  // namespace

AbortNotice::AbortNotice(GMainContext* context, pthread_t servingThread, std::function<void()> beforeAbort)
    : beforeAbort_(std::move(beforeAbort)) {
  signals = {.began = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK),
             .mayGoOn = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK),
             .servingThread = servingThread};
  if (signals.began < 0 || signals.mayGoOn < 0)
    return;
  source_ = g_unix_fd_source_new(signals.began, G_IO_IN);
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
  close(signals.began);
  close(signals.mayGoOn);
}

gboolean AbortNotice::abortBegan(gint /*descriptor*/, GIOCondition /*condition*/, gpointer self) {
  static_cast<AbortNotice*>(self)->beforeAbort_();
  raiseEvent(signals.mayGoOn);
  return G_SOURCE_REMOVE;
}

}  // namespace Linux
