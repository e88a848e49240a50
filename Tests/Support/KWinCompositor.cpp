#include <map>
#include <mutex>
#include <nlohmann/json.hpp>

#include "Tests/Support/Compositors.h"
#include "Tests/Support/FakeService.h"
#include "Tests/Support/TemporaryFolder.h"

namespace TestSupport {

namespace {

using nlohmann::json;

constexpr auto description = R"(<node><interface name="com.quillary.Tests.KWin">
  <method name="Tell"><arg type="s" direction="in"/></method></interface></node>)";

/// The beginning of each script. Plasma 5 and 6 have different names for the list of windows.
constexpr auto prelude = R"(
const windows = (workspace.windowList ? workspace.windowList() : workspace.clientList()).filter(w => !w.skipTaskbar);
const tell = value => callDBus("com.quillary.Tests.KWin", "/", "com.quillary.Tests.KWin", "Tell", JSON.stringify(value));
)";

/// KWin runs scripts from files. What a script finds out it tells to a service of the test.
class KWin : public Compositor {
 public:
  KWin() {
    service_.answer("Tell", [this](GDBusMethodInvocation* invocation) {
      const gchar* text = nullptr;
      g_variant_get(g_dbus_method_invocation_get_parameters(invocation), "(&s)", &text);
      {
        const std::scoped_lock lock(mutex_);
        told_ = text;
      }
      g_dbus_method_invocation_return_value(invocation, nullptr);
    });
  }

  std::vector<CompositorWindow> windows() override {
    return windowsFrom(run(R"(tell(windows.map(w => ({id: String(w.internalId), title: w.caption, process: w.pid,
      application: String(w.resourceClass), isFocused: w.active, isMinimized: w.minimized}))))"));
  }

 protected:
  void change(const CompositorWindow& window, Change change) override {
    static const std::map<Change, std::string> statements = {
        {Change::focus, "window.minimized = false; workspace.activeClient = workspace.activeWindow = window"},
        {Change::minimize, "window.minimized = true"},
        {Change::close, "window.closeWindow()"}};
    run("const window = windows.find(w => w.internalId == " + json(window.id).dump() + ");\nif (window) {" +
        statements.at(change) + "}\ntell(true);");
  }

 private:
  json run(const std::string& script) {
    const auto file = folder_.write("script.js", prelude + script);
    const auto loaded =
        call("/Scripting", "org.kde.kwin.Scripting", "loadScript", g_variant_new("(ss)", file.c_str(), "tests"), "(i)");
    gint32 id = 0;
    g_variant_get(loaded.get(), "(i)", &id);
    call("/" + std::to_string(id), "org.kde.kwin.Script", "run", nullptr, "()");
    service_.awaitCalls("Tell", ++runs_);
    call("/Scripting", "org.kde.kwin.Scripting", "unloadScript", g_variant_new("(s)", "tests"), "(b)");
    const std::scoped_lock lock(mutex_);
    return json::parse(told_);
  }

  static DesktopSupport::VariantHandle call(const std::string& path, const char* interface, const char* method,
                                            GVariant* arguments, const char* answerType) {
    return callCompositor("org.kde.KWin", path, interface, method, arguments, answerType);
  }

  TemporaryFolder folder_;
  std::mutex mutex_;
  std::string told_;
  long runs_ = 0;
  FakeService service_{"com.quillary.Tests.KWin", "/", description};
};

}  // namespace

std::unique_ptr<Compositor> makeKWin() {
  return std::make_unique<KWin>();
}

}  // namespace TestSupport
