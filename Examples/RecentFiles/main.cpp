#include <memory>

#include "AppDelegate.h"
#include "Platform/Application.h"

int main(int argumentCount, char** arguments) {
  return Platform::applicationMain(argumentCount, arguments,
                                   [] { return std::make_unique<RecentFiles::AppDelegate>(); });
}
