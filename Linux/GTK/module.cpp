#include "Linux/GTK/GTKToolkit.h"

extern "C" __attribute__((visibility("default"))) Platform::Linux::WindowToolkit* deskloomOpenWindowToolkit(
    const Platform::Linux::WindowToolkitOptions& options) {
  return Platform::Linux::GTKToolkit::open(options);
}
