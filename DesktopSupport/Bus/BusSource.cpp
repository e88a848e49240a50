#include "DesktopSupport/Bus/BusSource.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <deque>
#include <mutex>
#include <utility>

#include "DesktopSupport/Bus/BusConnection.h"

namespace DesktopSupport {

/// What the source and its owner share.
class BusSource::State {
 public:
  State(std::weak_ptr<BusConnection> connection, int socket, GMainContext* context)
      : connection_(std::move(connection)),
        context_(context != nullptr ? context : g_main_context_default()),
        socket_{.fd = socket, .events = G_IO_IN, .revents = 0} {}

  [[nodiscard]] GMainContext* context() const { return context_; }

  void post(Work work) {
    const std::lock_guard lock(mutex_);
    work_.push_back(std::move(work));
  }
  bool hasWork() {
    const std::lock_guard lock(mutex_);
    return !work_.empty();
  }
  /// One at a time, since it may run the context itself.
  void workOnce() {
    std::unique_lock lock(mutex_);
    if (work_.empty())
      return;
    Work work = std::move(work_.front());
    work_.pop_front();
    lock.unlock();
    work();
  }

  void poll(GSource* source) {
    g_source_add_poll(source, &socket_);
    isPolled_ = true;
  }

  /// What to wait for, and for how many milliseconds at most.
  int prepare(GSource* source) {
    const auto connection = connection_.lock();
    const auto interest = connection ? connection->interest() : BusConnection::Interest{.isOpen = false};
    if (!interest.isOpen && std::exchange(isPolled_, false))
      g_source_remove_poll(source, &socket_);
    socket_.events = static_cast<gushort>(interest.writes ? G_IO_IN | G_IO_OUT : G_IO_IN);
    deadline_ = interest.deadline;
    if (!deadline_)
      return -1;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*deadline_ - std::chrono::steady_clock::now());
    return static_cast<int>(std::max<std::int64_t>(left.count(), 0));
  }

  [[nodiscard]] bool isDue() const {
    return (isPolled_ && socket_.revents != 0) || (deadline_ && *deadline_ <= std::chrono::steady_clock::now());
  }

  void exchange() const {
    if (const auto connection = connection_.lock())
      connection->exchange();
  }

 private:
  std::weak_ptr<BusConnection> connection_;
  GMainContext* context_;
  GPollFD socket_;
  bool isPolled_ = false;
  std::optional<std::chrono::steady_clock::time_point> deadline_;
  std::mutex mutex_;
  std::deque<Work> work_;
};

namespace {

/// A source of GLib's with an owner of the state behind it. The source may be attached and destroyed by other threads
/// than the context's, so the pointer is atomic, and who uses the state owns it too.
template <typename State>
struct SourceWith {
  GSource source;
  std::shared_ptr<State>* state;

  static std::shared_ptr<State>* owner(GSource* source) {
    return std::atomic_ref(reinterpret_cast<SourceWith*>(source)->state).load(std::memory_order_acquire);
  }
  static void setOwner(GSource* source, std::shared_ptr<State>* owner) {
    std::atomic_ref(reinterpret_cast<SourceWith*>(source)->state).store(owner, std::memory_order_release);
  }
  static std::shared_ptr<State> of(GSource* source) { return *owner(source); }

  static gboolean prepare(GSource* source, gint* timeout) {
    const auto state = of(source);
    *timeout = state->prepare(source);
    return state->hasWork() ? TRUE : FALSE;
  }
  static gboolean check(GSource* source) {
    const auto state = of(source);
    return state->isDue() || state->hasWork() ? TRUE : FALSE;
  }
  static gboolean dispatch(GSource* source, GSourceFunc /*callback*/, gpointer /*data*/) {
    const auto state = of(source);
    state->exchange();
    state->workOnce();
    return G_SOURCE_CONTINUE;
  }
  static void finalize(GSource* source) { delete owner(source); }
};

}  // namespace

BusSource::BusSource(std::weak_ptr<BusConnection> connection, int socket, GMainContext* context)
    : state_(std::make_shared<State>(std::move(connection), socket, context)) {
  using Source = SourceWith<State>;
  static GSourceFuncs functions = {.prepare = &Source::prepare,
                                   .check = &Source::check,
                                   .dispatch = &Source::dispatch,
                                   .finalize = &Source::finalize,
                                   .closure_callback = nullptr,
                                   .closure_marshal = nullptr};
  source_ = g_source_new(&functions, sizeof(Source));
  state_->poll(source_);
  Source::setOwner(source_, new std::shared_ptr<State>(state_));
  // The work may run the context until something else arrives.
  g_source_set_can_recurse(source_, TRUE);
  g_source_attach(source_, context);
}

BusSource::~BusSource() {
  g_source_destroy(source_);
  g_source_unref(source_);
}

void BusSource::post(Work work) {
  state_->post(std::move(work));
  wake();
}

void BusSource::wake() const {
  // The context's own thread will look without being woken.
  if (g_main_context_is_owner(state_->context()) == FALSE)
    g_main_context_wakeup(state_->context());
}

}  // namespace DesktopSupport
