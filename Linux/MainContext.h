#pragma once

#include <glib.h>

namespace Linux {

/// Runs the default main context until `isDone()`. It is asked after each event and at least once a second, so it may
/// depend on the time. For the main thread alone.
template <typename Condition>
void runMainContextUntil(Condition isDone) {
  const guint ticks = g_timeout_add_seconds(1, [](gpointer) -> gboolean { return G_SOURCE_CONTINUE; }, nullptr);
  while (!isDone())
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
  g_source_remove(ticks);
}

}  // namespace Linux
