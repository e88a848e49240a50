#include "Linux/GTK/GTKToolkit.h"

extern "C" __attribute__((visibility("default"))) Linux::WindowToolkit* deskloomOpenWindowToolkit(
    const Linux::WindowToolkitOptions& options) {
  return Linux::GTKToolkit::open(options);
}
