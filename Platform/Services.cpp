#include "Platform/Services.h"

#include <utility>

#include "Platform/Error.h"

namespace Platform {

namespace {

const Services* installed = nullptr;

}  // namespace

const Services& services() {
  if (installed == nullptr)
    fatalError("No platform services are installed.");
  return *installed;
}

Application& sharedApplication() {
  Application* application = services().application;
  if (application == nullptr)
    fatalError("There is no shared application object.");
  return *application;
}

ServicesInstallation::ServicesInstallation(const Services& services) : previous_(std::exchange(installed, &services)) {}

ServicesInstallation::~ServicesInstallation() {
  installed = previous_;
}

}  // namespace Platform
