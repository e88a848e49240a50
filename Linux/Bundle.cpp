#include "Linux/Bundle.h"

#include <cstddef>
#include <system_error>
#include <utility>

#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/KeyFileGroup.h"
#include "DesktopSupport/System/SystemLog.h"

namespace Linux {

namespace {

using DesktopSupport::KeyFileGroup;
using std::filesystem::path;

constexpr std::size_t maximumSize = 1 << 20;

path executableDirectory() {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
}

/// The text of the file; empty if there is none. If the file cannot be used, logs why.
std::string informationIn(const path& file) {
  std::error_code ignored;
  if (std::filesystem::symlink_status(file, ignored).type() == std::filesystem::file_type::not_found)
    return "";
  auto text = DesktopSupport::fileContents(file, maximumSize);
  if (!text)
    DesktopSupport::writeToSystemLog(file.string() + " cannot be read, is not a regular file or is larger than 1 MiB");
  else if (!KeyFileGroup::parse(*text, "Bundle"))
    DesktopSupport::writeToSystemLog(file.string() +
                                     " has no group [Bundle], or has a broken line before the end of that group");
  return std::move(text).value_or("");
}

}  // namespace

Bundle::Bundle() : Bundle(executableDirectory()) {}

Bundle::Bundle(std::filesystem::path path) : path_(std::move(path)), information_(informationIn(path_ / "Info.ini")) {}

std::optional<std::string> Bundle::value(std::string_view group, std::string_view key) const {
  const auto values = KeyFileGroup::parse(information_, group);
  auto text = values ? values->text(key) : std::nullopt;
  return text && !text->empty() ? std::move(text) : std::nullopt;
}

Strings::Strings(const Platform::Bundle& bundle)
    : folder_(bundle.path() / "locale"), name_(bundle.identifier().value_or("")) {}

std::string Strings::localized(std::string_view key, std::string_view /*comment*/) const {
  // Reads the catalogue for the first text, as most launches show none.
  std::call_once(searched_, [this] { catalogue_ = DesktopSupport::MessageCatalogue::inUsersLanguage(folder_, name_); });
  const auto translation = catalogue_ ? catalogue_->translation(key) : std::nullopt;
  return translation.value_or(std::string(key));
}

}  // namespace Linux
