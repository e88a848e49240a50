#pragma once

#include <expected>
#include <filesystem>
#include <fstream>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace HostStandIn {

/// Where the host tells what reaches it. Every line is out, whole, before an operation returns.
class Output {
 public:
  enum class Format {
    /// Each URL as it came.
    url,
    /// The resources that the URL carries; the URL as it came, and a note, where it carries none.
    table,
  };

  /// Prints to `lines`; what there is to say about them goes to `notes`. Both must outlive the output.
  Output(Format format, std::ostream& lines, std::ostream& notes) : format_(format), lines_(lines), notes_(notes) {}

  /// Appends every line to `file` as well, URLs always as they came. Fails with a sentence where it cannot be opened.
  std::expected<void, std::string> logTo(const std::filesystem::path& file);

  /// Prints a URL, which must be free of line breaks.
  void printURL(std::string_view url);

  /// Prints a line that is no URL, made printable.
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
