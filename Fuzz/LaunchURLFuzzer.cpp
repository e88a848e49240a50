#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "BrimlaceTextView/Lines.h"
#include "DeskloomSDK/DeskloomPlugin.h"
#include "DeskloomSDK/Resources/Resource.h"
#include "Fuzz/Target.h"
#include "Gleanery/RunCommandActionController.h"
#include "Platform/Fake/FakeServices.h"
#include "Platform/Text/PercentEncoding.h"
#include "Platform/Text/URL.h"
#include "Platform/Text/UTF8.h"

namespace {

using Fuzz::require;
using Platform::URL;

constexpr std::string_view hostCommand = "deskloom://gleanery";

void requirePrintable(std::string_view text) {
  require(std::ranges::all_of(text, [](char byte) { return byte > ' ' && byte < '\x7F'; }),
          "A URL is printable ASCII.");
}

void requireKept(const URL& url, std::string_view text) {
  require(url.absoluteString() == text, "The text is kept unchanged.");
  requirePrintable(text);
  if (const auto scheme = url.scheme())
    require(text.starts_with(std::string(*scheme) + ":"), "The text begins with the scheme.");
  std::size_t size = url.host().value_or("").size();
  for (const std::string& component : url.pathComponents()) {
    require(!component.empty(), "No component is empty.");
    size += component.size();
  }
  require(size <= text.size(), "The parts are not longer than the whole.");
}

void requireRoundTrip(std::string_view text) {
  const std::string encoded = Platform::percentEncodedPath(text);
  requirePrintable(encoded);
  require(Platform::percentDecoded(encoded) == text, "Decoding returns what was percent-encoded.");
  require(Platform::percentDecoded(text).size() <= text.size(), "Decoding makes no text longer.");
}

void parse(std::string_view text) {
  requireRoundTrip(text);
  if (const auto url = URL::parse(std::string(text)))
    requireKept(*url, text);

  const URL file = URL::fileURL(text);
  requireKept(file, file.absoluteString());
  const auto again = URL::parse(file.absoluteString());
  require(again && again->pathComponents() == file.pathComponents(), "A file URL is a URL.");
  require(file.scheme() == "file" && !file.host(), "A file URL names this computer.");
  const std::string path = Platform::percentDecoded(file.absoluteString());
  require(!text.starts_with('/') || path.substr(std::string_view("file://").size()).starts_with(text),
          "A file URL has the path byte by byte.");
}

/// A plug-in on a fake desktop. Its commands run as in the application; other actions are only recorded.
class LaunchedPlugin {
 public:
  /// The result of every script; if it is absent, scripts fail.
  explicit LaunchedPlugin(std::optional<std::string_view> reply) : reply_(reply) {
    desktop_.scripts.answer = [this](std::string_view source) { return answer(source); };
    plugin_.actionController.onRun = [this](const std::string& id) { note("run", id); };
    plugin_.actionController.onEdit = [this](const std::string& id) { note("edit", id); };
    plugin_.actionController.onConfigure = [this] { note("configure", std::nullopt); };
    plugin_.actionController.onRunCommand = [this](const std::optional<std::string>& id) {
      note("runCommand", id);
      Gleanery::RunCommandActionController().run(id);
    };
    desktop_.appleEvents.setEventHandler(Platform::internetEventClass, Platform::getURLEventID,
                                         [this](const Platform::AppleEvent& event, Platform::AppleEvent&) {
                                           plugin_.actionController.handleURLEvent(event);
                                         });
  }

  void launch(std::string_view text) {
    desktop_.application.deliver(std::string(text));
    requireActionOf(text);
    requireResourcesOnly();
    desktop_.application.finishLaunching();
    const bool goesOn = action_ && *action_ != "runCommand";
    require(desktop_.application.terminations == (goesOn ? 0 : 1),
            "An application with nothing to do terminates, once.");
  }

 private:
  void note(const std::string& action, const std::optional<std::string>& id) {
    require(!action_, "A launch URL is one action.");
    action_ = action;
    id_ = id;
  }

  std::optional<Platform::ScriptOutcome> answer(std::string_view source) const {
    if (!reply_)
      return Platform::ScriptOutcome{.error = Platform::ScriptErrorInformation{.number = -600, .message = "No."}};
    const bool isBrowser = source.contains("\"Safari\"") || source.contains("\"Google Chrome\"");
    return Platform::ScriptOutcome{
        .result = Platform::ScriptOutcome::Result{isBrowser ? withAddresses(*reply_) : std::string(*reply_)}};
  }

  /// Browsers return a URL for each tab; a page without one is about:blank.
  static std::string withAddresses(std::string_view reply) {
    std::string text;
    bool isAddress = false;
    for (const std::string_view line : BrimlaceTextView::lines(reply)) {
      text.append(!isAddress || URL::parse(std::string(line)) ? line : "about:blank").append("\n");
      isAddress = !isAddress;
    }
    return text;
  }

  void requireActionOf(std::string_view text) const {
    require(plugin_.actionController.didPerformAction == action_.has_value(),
            "didPerformAction says whether an action was performed.");
    if (!action_)
      return;
    const auto url = URL::parse(std::string(text));
    require(url && url->scheme() == "deskloomplugin" && url->host() == action_, "The action is the URL's host.");
    const auto components = url ? url->pathComponents() : std::vector<std::string>();
    const bool hasID = components.size() == 2 && *action_ != "configure";
    require(hasID ? id_ == components[1] : !id_.has_value(), "The identifier is the only segment after the host.");
  }

  void requireResourcesOnly() const {
    const bool sends = action_ == "runCommand" && id_.has_value();
    require(desktop_.workspace.opened.size() == (sends ? 1 : 0), "A command with an identifier is answered, once.");
    require(desktop_.alerts.shown.empty(), "No launch URL shows an alert.");
    if (sends)
      requireResources(desktop_.workspace.opened.front());
  }

  void requireResources(std::string_view text) const {
    require(text.starts_with(hostCommand) && URL::parse(std::string(text)), "A URL goes to the host.");
    std::string_view payload = text.substr(hostCommand.size());
    if (payload.empty()) {
      require(!Platform::stringFromUTF8(std::string(reply_.value_or(""))),
              "Only a name that is not UTF-8 costs the payload.");
      return;
    }
    payload.remove_prefix(1);
    require(!payload.contains('/') || payload.find("%5C/") != std::string_view::npos, "A slash is escaped.");
    const auto resources = DeskloomSDK::decodeResources(Platform::percentDecoded(payload));
    require(resources.has_value(), "The payload is a list of resources.");
    const auto lines = BrimlaceTextView::lines(reply_.value_or(""));
    require(resources->size() <= lines.size() / 2, "There is a resource for a pair of lines at most.");
    for (const auto& resource : *resources)
      require(std::ranges::find(lines, resource.name()) != lines.end(), "A name is a line of the reply.");
  }

  std::optional<std::string_view> reply_;
  Platform::Fake::FakeServices desktop_;
  DeskloomSDK::DeskloomPlugin plugin_{
      {.askToInstallPluginIfNotInstalled = true, .alertUserThatPluginMustBeRunByDeskloomAndQuit = true}};
  std::optional<std::string> action_;
  std::optional<std::string> id_;
};

// Each pair of lines becomes a resource. That takes most of the time, and more of them show nothing new.
std::string_view shortened(std::string_view reply) {
  constexpr int mostLines = 16;
  std::size_t end = 0;
  for (int line = 0; line < mostLines && end < reply.size(); ++line)
    end = std::min(reply.find('\n', end), reply.size() - 1) + 1;
  return reply.substr(0, end);
}

}  // namespace

// The input's first line is a launch URL, the text after it the result of every script. Without a second line scripts
// fail.
void Fuzz::run(std::string_view input) {
  const std::size_t end = std::min(input.find('\n'), input.size());
  const std::string_view text = input.substr(0, end);
  parse(text);
  LaunchedPlugin(end == input.size() ? std::nullopt : std::optional(shortened(input.substr(end + 1)))).launch(text);
}
