#include <map>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/Compositors.h"

namespace TestSupport {

namespace {

using nlohmann::json;

std::string swaymsg(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "swaymsg");
  ChildProcess process(arguments);
  std::string answer = process.readAll();
  if (process.wait() != 0)
    throw std::runtime_error("sway refuses: " + answer);
  return answer;
}

/// Wayland windows have an application id that is not null, X windows have properties.
CompositorWindow windowFrom(const json& node) {
  const bool isX = node.contains("window_properties");
  const json& application = isX ? node["window_properties"].value("class", json()) : node["app_id"];
  return {.id = std::to_string(node["id"].get<int>()),
          .title = node["name"].is_null() ? "" : node["name"].get<std::string>(),
          .application = application.is_null() ? "" : application.get<std::string>(),
          .process = node["pid"].get<pid_t>(),
          .isFocused = node["focused"].get<bool>(),
          .isMinimized = !node["visible"].get<bool>()};
}

void addWindows(const json& node, std::vector<CompositorWindow>& windows) {
  if (node.contains("pid"))
    windows.push_back(windowFrom(node));
  for (const auto* children : {"nodes", "floating_nodes"})
    for (const json& child : node[children])
      addWindows(child, windows);
}

class Sway : public Compositor {
 public:
  std::vector<CompositorWindow> windows() override {
    std::vector<CompositorWindow> windows;
    addWindows(json::parse(swaymsg({"--raw", "--type", "get_tree"})), windows);
    return windows;
  }

 protected:
  void change(const CompositorWindow& window, Change change) override {
    static const std::map<Change, std::string> commands = {
        {Change::focus, "focus"}, {Change::minimize, "move scratchpad"}, {Change::close, "kill"}};
    swaymsg({"[con_id=" + window.id + "]", commands.at(change)});
  }
};

}  // namespace

std::unique_ptr<Compositor> makeSway() {
  return std::make_unique<Sway>();
}

}  // namespace TestSupport
