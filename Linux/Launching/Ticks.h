#pragma once

#include <glib.h>

namespace Linux {

/// Has the default main context return to whoever runs it, once a second.
class Ticks {
 public:
  Ticks() : source_(g_timeout_add_seconds(1, [](gpointer) -> gboolean { return G_SOURCE_CONTINUE; }, nullptr)) {}
  Ticks(const Ticks&) = delete;
  Ticks& operator=(const Ticks&) = delete;
  ~Ticks() { g_source_remove(source_); }

 private:
  guint source_;
};

}  // namespace Linux
