#include "Gleanery/App.h"

namespace Gleanery {

App& App::shared() {
  // Never destroyed, since the services that it observes are gone before static objects are.
  static App& app = *new App;
  return app;
}

App::App()
    : deskloomPlugin(
          {.askToInstallPluginIfNotInstalled = true, .alertUserThatPluginMustBeRunByDeskloomAndQuit = true}) {}

}  // namespace Gleanery
