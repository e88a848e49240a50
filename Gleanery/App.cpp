#include "Gleanery/App.h"

namespace Gleanery {

App& App::shared() {
  // Never destroyed: at the end of the process, the services that it observes are gone before any static object.
  static App& app = *new App;
  return app;
}

App::App()
    : deskloomPlugin(
          {.askToInstallPluginIfNotInstalled = true, .alertUserThatPluginMustBeRunByDeskloomAndQuit = true}) {}

}  // namespace Gleanery
