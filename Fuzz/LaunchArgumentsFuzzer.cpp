#include <algorithm>
#include <string>
#include <vector>

#include "DesktopSupport/Bus/ApplicationBus.h"
#include "Fuzz/Target.h"
#include "Linux/Launching/LaunchArguments.h"
#include "Platform/Text/UTF8.h"

namespace {

using Arguments = std::vector<std::string>;
using Fuzz::require;
using Linux::LaunchArguments;

Arguments argumentsOf(std::string_view input) {
  Arguments arguments;
  for (std::size_t begin = 0; begin <= input.size();) {
    const std::size_t end = std::min(input.find('\0', begin), input.size());
    arguments.emplace_back(input.substr(begin, end - begin));
    begin = end + 1;
  }
  return arguments;
}

bool isOption(const std::string& argument) {
  return argument == "--help" || argument == "--version" || argument == "--dbus-activated" ||
         argument == "--read-launch-urls";
}

bool contains(const Arguments& arguments, std::string_view argument) {
  return std::ranges::find(arguments, argument) != arguments.end();
}

void requireRefused(const Arguments& arguments, const std::string& message) {
  const auto isNamed = [&](const std::string& argument) {
    return argument.starts_with('-') && !isOption(argument) && message.ends_with(argument);
  };
  require(std::ranges::any_of(arguments, isNamed), "An error names the unknown option.");
}

void requireAllTaken(const Arguments& arguments, const LaunchArguments& parsed) {
  const auto rest = std::ranges::find(arguments, "--");
  Arguments urls(arguments.begin(), rest);
  require(contains(urls, "--help") == parsed.help, "--help is recognised.");
  require(contains(urls, "--version") == parsed.version, "--version is recognised.");
  require(contains(urls, "--dbus-activated") == parsed.activatedByBus, "--dbus-activated is recognised.");
  require(contains(urls, "--read-launch-urls") == parsed.readsLaunchURLs, "--read-launch-urls is recognised.");
  std::erase_if(urls, isOption);
  urls.insert(urls.end(), rest == arguments.end() ? rest : rest + 1, arguments.end());
  require(urls == parsed.launchURLs, "All other arguments are launch URLs, in their order.");
}

void requireHandedOver(const Arguments& urls) {
  for (const std::string& url : urls) {
    const auto message = DesktopSupport::owned(DesktopSupport::openArguments(url));
    const DesktopSupport::VariantHandle texts(g_variant_get_child_value(message.get(), 0));
    const char* sent = nullptr;
    if (g_variant_n_children(texts.get()) > 0)
      g_variant_get_child(texts.get(), 0, "&s", &sent);
    require((sent != nullptr) == Platform::stringFromUTF8(url).has_value(), "A URL is sent if it is UTF-8.");
    require(sent == nullptr || url == sent, "It is sent unchanged.");
  }
}

}  // namespace

// The input is the command line of a plug-in without the program's name: arguments with a NUL between them.
void Fuzz::run(std::string_view input) {
  const Arguments arguments = argumentsOf(input);
  const auto parsed = LaunchArguments::parse(arguments);
  if (!parsed) {
    requireRefused(arguments, parsed.error());
    return;
  }
  requireAllTaken(arguments, *parsed);
  requireHandedOver(parsed->launchURLs);
}
