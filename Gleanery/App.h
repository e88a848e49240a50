#pragma once

#include "DeskloomSDK/DeskloomPlugin.h"

namespace Gleanery {

/// The application as a plug-in. There is one, made at first use and kept until the process ends.
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
