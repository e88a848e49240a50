#include "Linux/MainQueue.h"

#include <utility>

namespace Linux {

MainQueue::~MainQueue() {
  const std::lock_guard lock(mutex_);
  if (source_ != 0)
    g_source_remove(source_);
}

void MainQueue::run(Work work) {
  const std::lock_guard lock(mutex_);
  waiting_.push_back(std::move(work));
  if (source_ == 0)
    source_ = g_idle_add_full(G_PRIORITY_DEFAULT, &MainQueue::drain, this, nullptr);
}

gboolean MainQueue::drain(gpointer queue) {
  auto* self = static_cast<MainQueue*>(queue);
  while (const Work work = self->next())
    work();
  return G_SOURCE_REMOVE;
}

/// The work that is first in line; none where the line is empty, and then the source is about to go.
MainQueue::Work MainQueue::next() {
  const std::lock_guard lock(mutex_);
  if (waiting_.empty()) {
    source_ = 0;
    return nullptr;
  }
  Work work = std::move(waiting_.front());
  waiting_.pop_front();
  return work;
}

}  // namespace Linux
