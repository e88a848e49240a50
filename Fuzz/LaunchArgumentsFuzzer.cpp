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
  require(std::ranges::any_of(arguments, isNamed), "A failure names the option that there isn't.");
}

void requireAllTaken(const Arguments& arguments, const LaunchArguments& parsed) {
  const auto rest = std::ranges::find(arguments, "--");
  Arguments urls(arguments.begin(), rest);
  require(contains(urls, "--help") == parsed.help, "It is known whether help was asked for.");
  require(contains(urls, "--version") == parsed.version, "It is known whether the version was asked for.");
  require(contains(urls, "--dbus-activated") == parsed.activatedByBus, "It is known who starts.");
  require(contains(urls, "--read-launch-urls") == parsed.readsLaunchURLs, "It is known whether more is to be read.");
  std::erase_if(urls, isOption);
  urls.insert(urls.end(), rest == arguments.end() ? rest : rest + 1, arguments.end());
  require(urls == parsed.launchURLs, "All else are launch URLs, in their order.");
}

void requireHandedOver(const Arguments& urls) {
  for (const std::string& url : urls) {
    const auto message = DesktopSupport::owned(DesktopSupport::openArguments(url));
    const DesktopSupport::VariantHandle texts(g_variant_get_child_value(message.get(), 0));
    const char* sent = nullptr;
    if (g_variant_n_children(texts.get()) > 0)
      g_variant_get_child(texts.get(), 0, "&s", &sent);
    require((sent != nullptr) == Platform::stringFromUTF8(url).has_value(), "A URL travels if it is UTF-8.");
    require(sent == nullptr || url == sent, "It travels as it is.");
  }
}

}  // namespace

// The input is the command line of a plug-in, behind the program's name, as a process gets it: with a NUL between the
// arguments.
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
