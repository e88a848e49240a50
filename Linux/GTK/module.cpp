// The module `deskloom-windows.so`: the toolkit on GTK, in the user's theme and language, on X11 and Wayland.

#include <clocale>
#include <utility>

#include <gtk/gtk.h>

#include "Linux/GTK/Windows.h"
#include "Linux/WindowToolkit.h"

namespace Linux::GTK {

namespace {

class Toolkit : public WindowToolkit {
 public:
  explicit Toolkit(WindowToolkitOptions application) : application_(std::move(application)) {}

  std::unique_ptr<Linux::AlertPanel> showAlert(const Platform::Alert& alert) override {
    return std::make_unique<AlertPanel>(alert, application_);
  }
  std::unique_ptr<Platform::Window> makeWindow(const Platform::WindowContent& content) override {
    return std::make_unique<Window>(content);
  }

 private:
  WindowToolkitOptions application_;
};

}  // namespace

}  // namespace Linux::GTK

extern "C" __attribute__((visibility("default"))) Linux::WindowToolkit* deskloomOpenWindowToolkit(
    const Linux::WindowToolkitOptions& options) {
  // Set only the categories that texts need: the application's numbers don't depend on the user's locale.
  gtk_disable_setlocale();
  std::setlocale(LC_CTYPE, "");
  std::setlocale(LC_MESSAGES, "");

  // By these names a desktop tells which application a window belongs to.
  g_set_prgname(options.applicationIdentifier.c_str());
  g_set_application_name(options.applicationName.c_str());
  if (gtk_init_check() == FALSE)
    return nullptr;
  gtk_window_set_default_icon_name(options.applicationIdentifier.c_str());
  return new Linux::GTK::Toolkit(options);
}
