#include "Linux/GTK/GTKToolkit.h"

#include <clocale>
#include <utility>

#include <gtk/gtk.h>

#include "Linux/GTK/GTKAlertPanel.h"
#include "Linux/GTK/GTKWindow.h"

namespace Linux {

WindowToolkit* GTKToolkit::open(const WindowToolkitOptions& options) {
  // Only what texts need: the application's numbers are written as they are everywhere.
  gtk_disable_setlocale();
  std::setlocale(LC_CTYPE, "");
  std::setlocale(LC_MESSAGES, "");

  // By these a desktop tells which application a window belongs to.
  g_set_prgname(options.applicationIdentifier.c_str());
  g_set_application_name(options.applicationName.c_str());
  if (gtk_init_check() == FALSE)
    return nullptr;
  gtk_window_set_default_icon_name(options.applicationIdentifier.c_str());
  return new GTKToolkit(options);
}

GTKToolkit::GTKToolkit(WindowToolkitOptions application) : application_(std::move(application)) {}

std::unique_ptr<AlertPanel> GTKToolkit::showAlert(const Platform::Alert& alert) {
  return std::make_unique<GTKAlertPanel>(alert, application_);
}

std::unique_ptr<Platform::Window> GTKToolkit::makeWindow(const Platform::WindowContent& content) {
  return std::make_unique<GTKWindow>(content);
}

}  // namespace Linux
