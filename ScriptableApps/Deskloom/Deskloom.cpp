#include "ScriptableApps/Deskloom/Deskloom.h"

#include <array>
#include <initializer_list>

#include "AppleScript/Values/Application.h"
#include "AppleScript/Values/Value.h"

namespace ScriptableApps {

namespace {

using AppleScript::Application;
using AppleScript::Arguments;
using AppleScript::CommandDescription;
using AppleScript::DirectParameter;
using AppleScript::ParameterDescription;
using AppleScript::Result;
using AppleScript::Value;
using DesktopSupport::VariantHandle;

using Text = Result<std::string>;

constexpr const char* applicationName = "Deskloom";

Result<VariantHandle> call(Application& application, const char* method, std::initializer_list<Text> parameters,
                           const char* replyType) {
  std::vector<std::string> texts;
  for (const Text& parameter : parameters) {
    if (!parameter)
      return std::unexpected(parameter.error());
    texts.push_back(*parameter);
  }
  return static_cast<Deskloom&>(application).host().call(method, texts, replyType);
}

// Calls a method that answers whether there is a text, and the text.
Result<Value> text(Application& application, const char* method, std::initializer_list<Text> parameters) {
  const auto reply = call(application, method, parameters, "(bs)");
  if (!reply)
    return std::unexpected(reply.error());
  return textOf(reply->get());
}

Result<Value> truth(Application& application, const char* method, std::initializer_list<Text> parameters) {
  const auto reply = call(application, method, parameters, "(b)");
  if (!reply)
    return std::unexpected(reply.error());
  return truthOf(reply->get());
}

// Calls a method whose answer doesn't matter.
Result<Value> nothing(Application& application, const char* method, std::initializer_list<Text> parameters) {
  const auto reply = call(application, method, parameters, "r");
  if (!reply)
    return std::unexpected(reply.error());
  return Value();
}

constexpr ParameterDescription bundleIDParameter{"action bundle id"};
constexpr ParameterDescription actionParameter{"action"};

constexpr auto commands = std::to_array<CommandDescription>({
    {.name = "get global config",
     .direct = DirectParameter::required,
     .run = [](Application& host,
               const Arguments& given) { return text(host, "GetGlobalConfig", {given.directText()}); }},
    {.name = "set global config",
     .direct = DirectParameter::required,
     .parameters = {&bundleIDParameter, 1},
     .run =
         [](Application& host, const Arguments& given) {
           return nothing(host, "SetGlobalConfig", {given.directText(), given.labelledText(bundleIDParameter.label)});
         }},
    {.name = "get config",
     .direct = DirectParameter::required,
     .run = [](Application& host, const Arguments& given) { return text(host, "GetConfig", {given.directText()}); }},
    {.name = "set config",
     .direct = DirectParameter::required,
     .parameters = {&actionParameter, 1},
     .run =
         [](Application& host, const Arguments& given) {
           return nothing(host, "SetConfig", {given.directText(), given.labelledText(actionParameter.label)});
         }},
    {.name = "get plugin folder path",
     .run = [](Application& host, const Arguments&) { return text(host, "GetPluginFolderPath", {}); }},
    {.name = "get path of plugin",
     .direct = DirectParameter::required,
     .run = [](Application& host,
               const Arguments& given) { return text(host, "GetPathOfPlugin", {given.directText()}); }},
    {.name = "get is plugin installed at path",
     .direct = DirectParameter::required,
     .run = [](Application& host,
               const Arguments& given) { return truth(host, "GetIsPluginInstalledAtPath", {given.directText()}); }},
    {.name = "install plugin",
     .run = [](Application& host, const Arguments&) { return nothing(host, "InstallPlugin", {}); }},
});

constexpr auto properties = std::to_array<AppleScript::PropertyDescription>({
    {"name", [](const AppleScript::Object&) -> Result<Value> { return Value(applicationName); }},
});

constexpr AppleScript::ClassDescription applicationClass{
    .name = "application", .plural = "applications", .properties = properties};
constexpr std::array<const AppleScript::ClassDescription*, 1> classes = {&applicationClass};

class DeskloomObject : public AppleScript::Object {
 public:
  [[nodiscard]] const AppleScript::ClassDescription& classDescription() const override { return applicationClass; }
};

}  // namespace

std::string_view Deskloom::name() const {
  return applicationName;
}

const AppleScript::Dictionary& Deskloom::dictionary() const {
  static constexpr AppleScript::Dictionary dictionary{
      .application = &applicationClass, .classes = classes, .commands = commands};
  return dictionary;
}

Result<AppleScript::ObjectPointer> Deskloom::open() {
  return std::make_shared<const DeskloomObject>();
}

}  // namespace ScriptableApps
