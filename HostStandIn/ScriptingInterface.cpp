#include "HostStandIn/ScriptingInterface.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace HostStandIn {

namespace {

using Answer = ExportedInterface::Answer;

const char* const description = R"(
  <node>
    <interface name="com.quillary.Deskloom.Scripting">
      <method name="GetGlobalConfig">
        <arg type="s" name="bundleID" direction="in"/>
        <arg type="b" name="hasText" direction="out"/>
        <arg type="s" name="text" direction="out"/>
      </method>
      <method name="SetGlobalConfig">
        <arg type="s" name="text" direction="in"/>
        <arg type="s" name="bundleID" direction="in"/>
      </method>
      <method name="GetConfig">
        <arg type="s" name="actionID" direction="in"/>
        <arg type="b" name="hasText" direction="out"/>
        <arg type="s" name="text" direction="out"/>
      </method>
      <method name="SetConfig">
        <arg type="s" name="text" direction="in"/>
        <arg type="s" name="actionID" direction="in"/>
      </method>
      <method name="GetPluginFolderPath">
        <arg type="b" name="hasText" direction="out"/>
        <arg type="s" name="path" direction="out"/>
      </method>
      <method name="GetPathOfPlugin">
        <arg type="s" name="name" direction="in"/>
        <arg type="b" name="hasText" direction="out"/>
        <arg type="s" name="path" direction="out"/>
      </method>
      <method name="GetIsPluginInstalledAtPath">
        <arg type="s" name="path" direction="in"/>
        <arg type="b" name="installed" direction="out"/>
      </method>
      <method name="InstallPlugin"/>
    </interface>
  </node>)";

std::string argument(GVariant* arguments, gsize index) {
  const DesktopSupport::VariantHandle text(g_variant_get_child_value(arguments, index));
  return g_variant_get_string(text.get(), nullptr);
}

Answer textAnswer(const std::optional<std::string>& text) {
  return {.reply = DesktopSupport::owned(g_variant_new("(bs)", text.has_value(), text.value_or("").c_str()))};
}

// A method and how it is answered.
struct Command {
  std::string_view method;
  Answer (*answer)(ScriptingCommands& commands, GVariant* arguments);
};

constexpr Command configurationCommands[] = {
    {"GetGlobalConfig", [](ScriptingCommands& commands,
                           GVariant* arguments) { return textAnswer(commands.globalConfig(argument(arguments, 0))); }},
    {"SetGlobalConfig",
     [](ScriptingCommands& commands, GVariant* arguments) {
       commands.setGlobalConfig(argument(arguments, 0), argument(arguments, 1));
       return Answer();
     }},
    {"GetConfig", [](ScriptingCommands& commands,
                     GVariant* arguments) { return textAnswer(commands.config(argument(arguments, 0))); }},
    {"SetConfig",
     [](ScriptingCommands& commands, GVariant* arguments) {
       commands.setConfig(argument(arguments, 0), argument(arguments, 1));
       return Answer();
     }},
    {"GetPluginFolderPath",
     [](ScriptingCommands& commands, GVariant* /*arguments*/) { return textAnswer(commands.pluginFolderPath()); }},
    {"GetPathOfPlugin", [](ScriptingCommands& commands,
                           GVariant* arguments) { return textAnswer(commands.pathOfPlugin(argument(arguments, 0))); }},
    {"GetIsPluginInstalledAtPath",
     [](ScriptingCommands& commands, GVariant* /*arguments*/) {
       return Answer{.reply = DesktopSupport::owned(g_variant_new("(b)", commands.isPluginInstalled()))};
     }},
};

DesktopSupport::BusError refusal() {
  return {.name = "com.quillary.Deskloom.Error.InstallationRefused", .message = "The installation was refused."};
}

Answer installationAnswer(ScriptingCommands& commands, std::move_only_function<void()>& installed) {
  if (!commands.installPlugin())
    return {.reply = std::unexpected(refusal())};
  installed();
  return {};
}

}  // namespace

ScriptingInterface::ScriptingInterface(const DesktopSupport::SessionBus& bus, ScriptingCommands& commands,
                                       std::move_only_function<void()> installed)
    : exported_(bus, "/com/quillary/Deskloom", description,
                [&commands, installed = std::move(installed)](std::string_view method,
                                                              GVariant* arguments) mutable -> Answer {
                  // Only the methods of the description arrive, so any other one is InstallPlugin.
                  const auto* command = std::ranges::find(configurationCommands, method, &Command::method);
                  if (command != std::end(configurationCommands))
                    return command->answer(commands, arguments);
                  return installationAnswer(commands, installed);
                }) {}

}  // namespace HostStandIn
