#include <map>
#include <nlohmann/json.hpp>

#include "Tests/Support/Compositors.h"

namespace TestSupport {

namespace {

using nlohmann::json;

/// Asks by the tests' extension, in Support/GNOMEShell, which evaluates a text and answers with the value as JSON.
class GNOMEShell : public Compositor {
 public:
  std::vector<CompositorWindow> windows() override {
    return windowsFrom(evaluate(R"(windows().map(w => ({id: String(w.get_id()), title: w.get_title() ?? '',
      application: w.get_wm_class() ?? '', process: w.get_pid(), isFocused: w.has_focus(),
      isMinimized: w.minimized})))"));
  }

 protected:
  void change(const CompositorWindow& window, Change change) override {
    static const std::map<Change, std::string> methods = {{Change::focus, "activate(global.get_current_time())"},
                                                          {Change::minimize, "minimize()"},
                                                          {Change::close, "delete(global.get_current_time())"}};
    evaluate("windows().find(w => String(w.get_id()) === '" + window.id + "')?." + methods.at(change));
  }

 private:
  static json evaluate(const std::string& text) {
    const auto answer = callCompositor("org.gnome.Shell", "/com/quillary/Tests/Evaluate", "com.quillary.Tests.Evaluate",
                                       "Evaluate", g_variant_new("(s)", text.c_str()), "(s)");
    const gchar* value = nullptr;
    g_variant_get(answer.get(), "(&s)", &value);
    return json::parse(value);
  }
};

}  // namespace

std::unique_ptr<Compositor> makeGNOMEShell() {
  return std::make_unique<GNOMEShell>();
}

}  // namespace TestSupport
