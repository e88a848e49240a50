#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "AppleScript/Values/Application.h"
#include "AppleScript/Values/Dictionary.h"

namespace AppleScript::Testing {

/// An application that has no objects but commands, and answers each with a text that tells what it was given.
class TestHost : public Application {
 public:
  [[nodiscard]] std::string_view name() const override { return "Deskloom"; }
  [[nodiscard]] const Dictionary& dictionary() const override { return dictionary_; }
  [[nodiscard]] Result<ObjectPointer> open() override {
    return std::unexpected(ScriptError{.number = ErrorNumber::notRunning, .message = "Application isn’t running."});
  }

  /// The commands that were run.
  [[nodiscard]] const std::vector<std::string>& log() const { return log_; }

 private:
  static Result<Value> note(Application& application, std::string call, Value reply) {
    static_cast<TestHost&>(application).log_.push_back(std::move(call));
    return reply;
  }

  /// Answers "name(direct)"; to an action or a plug-in called "none" with nothing.
  template <const char* Name>
  static Result<Value> get(Application& application, const Arguments& arguments) {
    const Result<std::string> key = arguments.directText();
    if (!key)
      return std::unexpected(key.error());
    const std::string call = std::string(Name) + "(" + *key + ")";
    return note(application, call, *key == "none" ? Value() : Value(call));
  }

  template <const char* Name, const char* Label>
  static Result<Value> set(Application& application, const Arguments& arguments) {
    const Result<std::string> text = arguments.directText();
    const Result<std::string> key = arguments.labelledText(Label);
    if (!text || !key)
      return std::unexpected(text ? key.error() : text.error());
    return note(application, std::string(Name) + "(" + *text + ", " + *key + ")", {});
  }

  static Result<Value> folder(Application& application, const Arguments& /*arguments*/) {
    return note(application, "folder", "/plugins");
  }
  static Result<Value> isInstalled(Application& application, const Arguments& arguments) {
    return note(application, "is installed", *arguments.directText() == "/there");
  }
  static Result<Value> install(Application& application, const Arguments& /*arguments*/) {
    return note(application, "install", {});
  }
  static Result<Value> hang(Application& /*application*/, const Arguments& /*arguments*/) {
    return std::unexpected(ScriptError{.number = ErrorNumber::timedOut, .message = "AppleEvent timed out."});
  }
  static Result<Value> ring(Application& application, const Arguments& arguments) {
    return note(application, "ring", arguments.hasDirect() ? Value("for " + *arguments.directText()) : Value("once"));
  }

  static constexpr char configPath[] = "config";
  static constexpr char globalParameter[] = "global config";
  static constexpr char pathValue[] = "path";
  static constexpr char actionParameter[] = "action";
  static constexpr char bundleParameter[] = "action bundle id";

  static constexpr ParameterDescription actionParameters[] = {{actionParameter}};
  static constexpr ParameterDescription bundleParameters[] = {{bundleParameter}};
  static constexpr CommandDescription allCommands[] = {
      {"get global config", DirectParameter::required, {}, get<globalParameter>},
      {"set global config", DirectParameter::required, bundleParameters, set<globalParameter, bundleParameter>},
      {"get config", DirectParameter::required, {}, get<configPath>},
      {"set config", DirectParameter::required, actionParameters, set<configPath, actionParameter>},
      {"get plugin folder path", DirectParameter::none, {}, folder},
      {"get path of plugin", DirectParameter::required, {}, get<pathValue>},
      {"get is plugin installed at path", DirectParameter::required, {}, isInstalled},
      {"install plugin", DirectParameter::none, {}, install},
      {"hang", DirectParameter::none, {}, hang},
      {"ring", DirectParameter::optional, {}, ring}};
  static constexpr ClassDescription root{"application", "applications", {}};

  Dictionary dictionary_{.application = &root, .commands = allCommands};
  std::vector<std::string> log_;
};

}  // namespace AppleScript::Testing
