#include "HostStandIn/Output.h"

#include <string>

#include "DesktopSupport/System/DisplayableText.h"
#include "HostStandIn/HostURL.h"

namespace HostStandIn {

std::expected<void, std::string> Output::logTo(const std::filesystem::path& file) {
  log_.emplace(file, std::ios::app | std::ios::binary);
  if (!*log_)
    return std::unexpected("cannot write to " + file.string());
  return {};
}

void Output::printURL(std::string_view url) {
  log(url);
  if (format_ == Format::table)
    printTable(url);
  else
    append(lines_, url);
}

void Output::printLine(std::string_view line) {
  const std::string shown = DesktopSupport::printable(line);
  log(shown);
  append(lines_, shown);
}

void Output::append(std::ostream& stream, std::string_view line) {
  stream << line << '\n' << std::flush;
  if (!stream)
    notes_ << "deskloom-host: a line could not be written\n" << std::flush;
}

void Output::log(std::string_view line) {
  if (log_)
    append(*log_, line);
}

void Output::printTable(std::string_view url) {
  const auto table = resourceTable(url);
  append(lines_, table ? std::string_view(*table) : url);
  if (!table)
    notes_ << "deskloom-host: shown unchanged: " << table.error() << '\n' << std::flush;
}

}  // namespace HostStandIn
