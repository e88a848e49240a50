// Owns a name on the session bus, as a running program does, from when it prints a line until it is terminated.

#include <cstdio>
#include <cstdlib>

#include "Tests/Support/GIOHandles.h"

namespace {

void acquired(GDBusConnection* /*bus*/, const gchar* name, gpointer /*data*/) {
  std::puts(name);
  std::fflush(stdout);
}

void lost(GDBusConnection* /*bus*/, const gchar* name, gpointer /*data*/) {
  std::fprintf(stderr, "failed: somebody else has the name %s\n", name);
  std::exit(1);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "Usage: %s NAME\n", argv[0]);
    return 2;
  }
  g_bus_own_name(G_BUS_TYPE_SESSION, argv[1], G_BUS_NAME_OWNER_FLAGS_DO_NOT_QUEUE, nullptr, acquired, lost, nullptr,
                 nullptr);
  g_main_loop_run(g_main_loop_new(nullptr, FALSE));
}
