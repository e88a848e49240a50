#pragma once

#include <functional>
#include <memory>

#include "Platform/ApplicationDelegate.h"

/// What a plug-in needs from a desktop, and nothing more: small abstract classes, reached through `services()`.
namespace Platform {

/// Makes the application's delegate, once the services are installed and before a launch URL is delivered.
using MakeApplicationDelegate = std::function<std::unique_ptr<ApplicationDelegate>()>;

/// The application main routine (NSApplicationMain): installs this desktop's services, makes the delegate, delivers the
/// launch URLs, and runs until the application terminates. Takes the process's arguments and yields its exit status;
/// each desktop supplies one.
int applicationMain(int argumentCount, char** arguments, const MakeApplicationDelegate& makeDelegate);

}  // namespace Platform
