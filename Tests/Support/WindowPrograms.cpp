#include "Tests/Support/WindowPrograms.h"

#include <cstddef>
#include <stdexcept>

namespace TestSupport {

ChildProcess startGTKWindows(const std::string& applicationID, const std::vector<std::string>& titles,
                             WindowSystem windowSystem) {
  std::vector<std::string> arguments = {GTK_WINDOWS_PROGRAM, applicationID};
  arguments.insert(arguments.end(), titles.begin(), titles.end());
  const auto* backend = windowSystem == WindowSystem::x11 ? "x11" : "wayland";
  ChildProcess process(arguments, {.environment = {{"GDK_BACKEND", backend}}, .captureErrors = true});
  for (std::size_t shown = 0; shown < titles.size();) {
    const auto line = process.readLine();
    if (!line)
      throw std::runtime_error(applicationID + " ended before its windows were on screen");
    if (*line == "on screen")
      ++shown;
  }
  return process;
}

ChildProcess startXTerm(const std::string& title) {
  return ChildProcess({"xterm", "-title", title}, {.captureErrors = true});
}

ChildProcess startFeatherPad() {
  return ChildProcess({"featherpad", "--standalone"},
                      {.environment = {{"QT_QPA_PLATFORM", "wayland"}}, .captureErrors = true});
}

}  // namespace TestSupport
