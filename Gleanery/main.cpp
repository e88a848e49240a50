#include <memory>

#include "Gleanery/AppDelegate.h"
#include "Platform/Application.h"

int main(int argumentCount, char** arguments) {
  Platform::applicationMain(argumentCount, arguments, [] { return std::make_unique<Gleanery::AppDelegate>(); });
  return 0;
}
