#include "DesktopSupport/System/ProgramOptions.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "DesktopSupport/System/GLibHandles.h"

namespace DesktopSupport {

namespace {

using ContextHandle = std::unique_ptr<GOptionContext, ReleasedBy<g_option_context_free>>;

// GLib calls this for each option, which it names as it was given ("--log", "-e"), and with "" for each other argument.
gboolean take(const gchar* given, const gchar* value, gpointer options, GError** error) {
  const auto isGiven = [given = std::string(given)](const ProgramOption& option) {
    return given == option.name || given == std::string("--") + option.name || given == std::string{'-', option.letter};
  };
  const auto option = std::ranges::find_if(*static_cast<std::vector<ProgramOption>*>(options), isGiven);
  if (option->flag != nullptr) {
    *option->flag = true;
    return TRUE;
  }
  if (option->take(value))
    return TRUE;
  if (*given == '\0')
    g_set_error(error, G_OPTION_ERROR, G_OPTION_ERROR_BAD_VALUE, "Unexpected argument %s", value);
  else
    g_set_error(error, G_OPTION_ERROR, G_OPTION_ERROR_BAD_VALUE, "Invalid value \"%s\" for %s", value, given);
  return FALSE;
}

GOptionEntry entryFor(const ProgramOption& option) {
  const int flags = option.flag != nullptr ? G_OPTION_FLAG_NO_ARG : G_OPTION_FLAG_FILENAME;
  return {option.name, option.letter, flags, G_OPTION_ARG_CALLBACK, reinterpret_cast<gpointer>(&take),
          option.help, option.value};
}

ContextHandle makeContext(const char* summary, std::vector<ProgramOption>& options) {
  std::vector<GOptionEntry> entries;
  std::ranges::transform(options, std::back_inserter(entries), entryFor);
  entries.emplace_back();
  GOptionGroup* group = g_option_group_new(nullptr, nullptr, nullptr, &options, nullptr);
  g_option_group_add_entries(group, entries.data());
  ContextHandle context(g_option_context_new(nullptr));
  g_option_context_set_main_group(context.get(), group);
  g_option_context_set_help_enabled(context.get(), FALSE);
  g_option_context_set_summary(context.get(), summary);
  return context;
}

}  // namespace

std::expected<std::optional<std::string>, std::string> readOptions(const std::string& program, const char* summary,
                                                                   std::vector<ProgramOption> options,
                                                                   std::span<const std::string_view> arguments) {
  bool wantsHelp = false;
  options.push_back({.name = "help", .help = "show this text", .flag = &wantsHelp});
  const ContextHandle context = makeContext(summary, options);

  std::vector<std::string> texts = {program};
  texts.insert(texts.end(), arguments.begin(), arguments.end());
  std::vector<char*> words;
  std::ranges::transform(texts, std::back_inserter(words), [](std::string& text) { return text.data(); });
  auto count = static_cast<int>(words.size());
  char** rest = words.data();
  ErrorHandle error;
  if (g_option_context_parse(context.get(), &count, &rest, Out(error)) == FALSE)
    return std::unexpected(error->message);
  if (count > 1)
    return std::unexpected("Unexpected argument " + std::string(rest[1]));
  if (!wantsHelp)
    return std::nullopt;
  return CharsHandle(g_option_context_get_help(context.get(), TRUE, nullptr)).get();
}

}  // namespace DesktopSupport
