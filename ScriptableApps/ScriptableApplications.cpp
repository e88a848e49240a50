#include "ScriptableApps/ScriptableApplications.h"

#include <array>

#include "DesktopSupport/System/DisplayableText.h"
#include "ScriptableApps/Browsers/GoogleChrome.h"
#include "ScriptableApps/Browsers/Safari.h"
#include "ScriptableApps/Deskloom/Deskloom.h"
#include "ScriptableApps/Finder/Finder.h"
#include "ScriptableApps/SystemEvents/SystemEvents.h"

namespace ScriptableApps {

namespace {

template <typename T>
std::unique_ptr<AppleScript::Application> make() {
  return std::make_unique<T>();
}

constexpr std::array applicationMakers = {
    make<SystemEvents>, make<Finder>, make<GoogleChrome>, make<Safari>, make<Deskloom>,
};

}  // namespace

ScriptableApplications::ScriptableApplications() {
  for (const auto& makeApplication : applicationMakers)
    applications_.push_back(makeApplication());
}

AppleScript::Application* ScriptableApplications::find(std::string_view name) {
  const std::string wanted = DesktopSupport::lowerCase(name);
  for (const auto& application : applications_)
    if (DesktopSupport::lowerCase(application->name()) == wanted)
      return application.get();
  return nullptr;
}

}  // namespace ScriptableApps
