#include "Linux/Launching/FreshProcesses.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <expected>
#include <utility>

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include "DesktopSupport/System/FileDescriptor.h"
#include "Linux/Launching/DetachedProcess.h"
#include "Linux/Launching/LaunchArguments.h"

namespace Linux {

namespace {

using DesktopSupport::FileDescriptor;

std::vector<std::string> urlsOf(std::vector<Launch>& launches) {
  std::vector<std::string> urls;
  for (Launch& launch : launches)
    if (launch.url)
      urls.push_back(std::move(*launch.url));
  return urls;
}

void refuse(const std::vector<Launch>& launches, const std::string& reason) {
  for (const Launch& launch : launches)
    if (launch.caller)
      launch.caller->refuse(reason);
}

std::expected<pid_t, int> startWith(const std::vector<std::string>& launchURLs) {
  const FileDescriptor list(memfd_create("launch URLs", MFD_CLOEXEC));
  if (!list.isOpen())
    return std::unexpected(errno);
  if (const auto written = writeLaunchURLs(list.number(), launchURLs); !written)
    return std::unexpected(written.error());
  if (lseek(list.number(), 0, SEEK_SET) < 0)
    return std::unexpected(errno);
  return startDetached("/proc/self/exe", {"--read-launch-urls"}, list.number());
}

void attach(GSource* source, GMainContext* context, GSourceFunc callback, gpointer data) {
  g_source_set_callback(source, callback, data, nullptr);
  g_source_attach(source, context);
}

}  // namespace

/// A process that was started. It counts, and its callers wait, until it has ended or `longestLaunch` has passed.
class FreshProcesses::Process {
 public:
  Process(FreshProcesses& owner, pid_t id, std::vector<Launch> launches)
      : owner_(owner),
        launches_(std::move(launches)),
        end_(g_child_watch_source_new(id)),
        limit_(g_timeout_source_new(longestLaunch.count())) {
    g_source_set_callback(end_, G_SOURCE_FUNC(&Process::ended), this, nullptr);
    g_source_attach(end_, owner.context_);
    attach(limit_, owner.context_, &Process::tookLong, this);
  }
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  ~Process() {
    for (GSource* const source : {end_, limit_}) {
      g_source_destroy(source);
      g_source_unref(source);
    }
  }

  /// Whether a caller waits for its end.
  [[nodiscard]] bool hasCallers() const {
    return std::ranges::any_of(launches_, [](const Launch& launch) { return launch.caller != nullptr; });
  }

 private:
  static void ended(GPid /*id*/, gint status, gpointer self) {
    const auto* process = static_cast<Process*>(self);
    // A launch for which the application has no handler ends in an abort, so that counts as done.
    if (WIFSIGNALED(status) && WTERMSIG(status) != SIGABRT)
      refuse(process->launches_, "The process with the launch was killed.");
    process->owner_.remove(process);
  }
  static gboolean tookLong(gpointer self) {
    const auto* process = static_cast<Process*>(self);
    process->owner_.remove(process);
    return G_SOURCE_REMOVE;
  }

  FreshProcesses& owner_;
  std::vector<Launch> launches_;
  GSource* end_;
  GSource* limit_;
};

FreshProcesses::FreshProcesses(GMainContext* context, Platform::Log& log) : context_(context), log_(log) {}

FreshProcesses::~FreshProcesses() = default;

void FreshProcesses::start(std::vector<Launch> launches) {
  waiting_.push_back(std::move(launches));
  startWaiting();
}

void FreshProcesses::finish() {
  const auto isAwaited = [](const auto& process) { return process->hasCallers(); };
  while (!waiting_.empty() || std::ranges::any_of(underWay_, isAwaited))
    g_main_context_iteration(context_, /*may_block=*/TRUE);
}

void FreshProcesses::startWaiting() {
  while (!waiting_.empty() && underWay_.size() < mostAtOnce) {
    std::vector<Launch> launches = std::move(waiting_.front());
    waiting_.pop_front();
    startOne(std::move(launches));
  }
}

void FreshProcesses::startOne(std::vector<Launch> launches) {
  const auto process = startWith(urlsOf(launches));
  if (process) {
    underWay_.push_back(std::make_unique<Process>(*this, *process, std::move(launches)));
    return;
  }
  const std::string reason = std::strerror(process.error());
  log_.write("launch URLs were lost: no process could be started for them: " + reason);
  refuse(launches, reason);
}

void FreshProcesses::remove(const Process* process) {
  std::erase_if(underWay_, [process](const auto& each) { return each.get() == process; });
  startWaiting();
}

}  // namespace Linux
