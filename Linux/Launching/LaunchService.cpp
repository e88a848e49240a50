#include "Linux/Launching/LaunchService.h"

#include <chrono>
#include <future>
#include <utility>

namespace Linux {

namespace {

/// A source that is dispatched at its ready time.
GSource* makeTimer(GMainContext* context, GSourceFunc callback, gpointer data) {
  static GSourceFuncs functions = {
      .prepare = nullptr,
      .check = nullptr,
      .dispatch = [](GSource*, GSourceFunc function, gpointer argument) -> gboolean { return function(argument); },
      .finalize = nullptr,
      .closure_callback = nullptr,
      .closure_marshal = nullptr};
  GSource* const source = g_source_new(&functions, sizeof(GSource));
  g_source_set_callback(source, callback, data, nullptr);
  g_source_attach(source, context);
  return source;
}

void stopTimer(GSource*& timer) {
  if (GSource* const source = std::exchange(timer, nullptr)) {
    g_source_destroy(source);
    g_source_unref(source);
  }
}

/// The time in microseconds on GLib's monotonic clock, which is the standard library's too.
gint64 readyTime(Launch::Clock::time_point time) {
  return std::chrono::ceil<std::chrono::microseconds>(time.time_since_epoch()).count();
}

}  // namespace

LaunchService::LaunchService(LaunchQueue& queue, std::function<void()> wakeMainThread, Platform::Log& log)
    : queue_(queue),
      wakeMainThread_(std::move(wakeMainThread)),
      freshProcesses_(context_.get(), log),
      timer_(makeTimer(context_.get(), &LaunchService::timeCame, this)) {}

LaunchService::~LaunchService() {
  if (thread_.joinable()) {
    passOnAll();
    abortNotice_.reset();
    isOver_ = true;
    g_main_context_wakeup(context_.get());
    thread_.join();
  }
  stopTimer(nameTimer_);
  stopTimer(timer_);
}

bool LaunchService::acquireName(DesktopSupport::SessionBus bus, const std::string& identifier) {
  presence_ = std::make_unique<BusPresence>(std::move(bus), identifier, context_.get(),
                                            [this](Launch launch) { take(std::move(launch)); });
  return presence_->acquireName();
}

void LaunchService::acquireNameLater(const std::string& identifier) {
  nameForLater_ = identifier;
  nameTimer_ = makeTimer(context_.get(), &LaunchService::timeForNameCame, this);
  g_source_set_ready_time(nameTimer_, readyTime(Launch::Clock::now() + timeWithoutName));
}

void LaunchService::start() {
  thread_ = std::thread([this] { serve(); });
  abortNotice_ = std::make_unique<AbortNotice>(context_.get(), thread_.native_handle(), [this] { leaveBeforeAbort(); });
}

void LaunchService::serve() {
  g_main_context_push_thread_default(context_.get());
  while (!isOver_)
    g_main_context_iteration(context_.get(), /*may_block=*/TRUE);
  g_main_context_pop_thread_default(context_.get());
}

void LaunchService::onServiceThread(const std::function<void()>& work) const {
  struct Errand {
    const std::function<void()>& work;
    std::promise<void> done;
  } errand{.work = work, .done = {}};
  GSource* const source = g_idle_source_new();
  g_source_set_priority(source, G_PRIORITY_DEFAULT);
  const auto run = [](gpointer data) -> gboolean {
    auto* const given = static_cast<Errand*>(data);
    given->work();
    given->done.set_value();
    return G_SOURCE_REMOVE;
  };
  g_source_set_callback(source, run, &errand, nullptr);
  g_source_attach(source, context_.get());
  g_source_unref(source);
  errand.done.get_future().wait();
}

void LaunchService::take(Launch launch) {
  queue_.add(std::move(launch));
  setTimer();
  wakeMainThread_();
}

void LaunchService::releaseName() {
  onServiceThread([this] {
    stopTimer(nameTimer_);
    if (presence_)
      presence_->releaseName();
    receiveAll();
  });
}

void LaunchService::passOnAll() {
  onServiceThread([this] {
    passOn(queue_.takeAll());
    finishPassingOn();
  });
}

/// Receives everything that the bus has sent already.
void LaunchService::receiveAll() {
  while (g_main_context_iteration(context_.get(), /*may_block=*/FALSE) != FALSE) {
  }
}

void LaunchService::passOn(std::vector<Launch> launches) {
  std::vector<Launch> fromCommandLine;
  for (Launch& launch : launches)
    if (launch.caller && launch.caller->helpsItself())
      launch.caller->refuse("The application is busy.");
    else if (launch.caller)
      freshProcesses_.start({std::move(launch)});
    else
      fromCommandLine.push_back(std::move(launch));
  if (!fromCommandLine.empty())
    freshProcesses_.start(std::move(fromCommandLine));
}

void LaunchService::finishPassingOn() {
  freshProcesses_.finish();
  if (presence_)
    presence_->flush();
}

void LaunchService::leaveBeforeAbort() {
  queue_.finish();  // the launch in hand has begun, so it is not done again
  stopTimer(nameTimer_);
  if (presence_)
    presence_->releaseName();
  receiveAll();
  passOn(queue_.takeAll());
  finishPassingOn();
}

void LaunchService::setTimer() {
  const auto next = queue_.nextDeadline();
  g_source_set_ready_time(timer_, next ? readyTime(*next) : -1);
}

gboolean LaunchService::timeCame(gpointer self) {
  auto* const service = static_cast<LaunchService*>(self);
  const auto now = Launch::Clock::now();
  service->queue_.acceptIfSlow(now);
  service->passOn(service->queue_.takeOverdue(now));
  service->setTimer();
  return G_SOURCE_CONTINUE;
}

gboolean LaunchService::timeForNameCame(gpointer self) {
  auto* const service = static_cast<LaunchService*>(self);
  stopTimer(service->nameTimer_);
  if (auto bus = DesktopSupport::SessionBus::connect())
    static_cast<void>(service->acquireName(std::move(*bus), service->nameForLater_));
  return G_SOURCE_REMOVE;
}

}  // namespace Linux
