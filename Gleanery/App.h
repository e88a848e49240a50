#pragma once

#include "DeskloomSDK/DeskloomPlugin.h"

namespace Gleanery {

/// Owns the plug-in object. There is one `App`, made at first use and kept until the process ends.
class App {
 public:
  static App& shared();
  App(const App&) = delete;
  App& operator=(const App&) = delete;
  ~App() = default;

  DeskloomSDK::DeskloomPlugin deskloomPlugin;

 private:
  App();
};

}  // namespace Gleanery
