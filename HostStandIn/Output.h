#pragma once

#include <expected>
#include <filesystem>
#include <fstream>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace HostStandIn {

/// Prints what reaches the host. Each operation writes its whole line before it returns.
class Output {
 public:
  enum class Format {
    /// Each URL unchanged.
    url,
    /// The resources that each URL carries. If a URL carries none, the URL unchanged, with a note.
    table,
  };

  /// Prints lines to `lines` and notes about them to `notes`. Both streams must outlive this object.
  Output(Format format, std::ostream& lines, std::ostream& notes) : format_(format), lines_(lines), notes_(notes) {}

  /// Appends every line to `file` too, with URLs always unchanged. Fails with a phrase for the user if the file cannot
  /// be opened.
  std::expected<void, std::string> logTo(const std::filesystem::path& file);

  /// Prints a URL, which must not contain line breaks.
  void printURL(std::string_view url);

  /// Prints any other line, made printable.
  void printLine(std::string_view line);

 private:
  void append(std::ostream& stream, std::string_view line);
  void log(std::string_view line);
  void printTable(std::string_view url);

  Format format_;
  std::ostream& lines_;
  std::ostream& notes_;
  std::optional<std::ofstream> log_;
};

}  // namespace HostStandIn
