#include <chrono>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include <sys/utsname.h>

#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/MessageCatalogue.h"
#include "DesktopSupport/System/SystemLog.h"
#include "DesktopSupport/System/UserFolders.h"
#include "Platform/Bundle.h"
#include "Platform/Log.h"
#include "UpdateCheck/UpdateChecker.h"
#include "UpdateCheck/UpdateSettings.h"

namespace {

using std::filesystem::path;

constexpr const char* help =
    "Usage: update-check\n"
    "\n"
    "Looks for an update of the plug-in whose bundle this program is in, and tells the user if there is one. The feed is\n"
    "named in the bundle's Info.ini. Errors are in the log.\n"
    "\n"
    "  --help     show this text\n"
    "  --version  show the version\n";

class SystemLog : public Platform::Log {
 public:
  void write(std::string_view message) override { DesktopSupport::writeToSystemLog(message); }
};

/// The texts of the catalogues in the bundle: `locale/<language>/LC_MESSAGES/<identifier>.mo`.
class BundleStrings : public Platform::Strings {
 public:
  BundleStrings(const path& bundle, const std::string& identifier)
      : catalogue_(DesktopSupport::MessageCatalogue::inUsersLanguage(bundle / "locale", identifier)) {}

  [[nodiscard]] std::string localized(std::string_view key, std::string_view /*comment*/) const override {
    const auto translation = catalogue_ ? catalogue_->translation(key) : std::nullopt;
    return translation.value_or(std::string(key));
  }

 private:
  std::optional<DesktopSupport::MessageCatalogue> catalogue_;
};

path bundleOfThisProgram() {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
}

std::string kernelRelease() {
  utsname facts = {};
  return uname(&facts) == 0 ? facts.release : "";
}

void checkForUpdate() {
  constexpr std::size_t maximumSize = 1UL << 20;
  SystemLog log;
  const path bundle = bundleOfThisProgram();
  const auto information = DesktopSupport::fileContents(bundle / "Info.ini", maximumSize);
  const auto parsed = UpdateCheck::UpdateSettings::parse(information.value_or(""));
  if (!parsed)
    return log.write("could not check for an update: " + parsed.error());
  const std::optional<UpdateCheck::UpdateSettings>& settings = *parsed;
  if (!settings)
    return;
  const BundleStrings strings(bundle, settings->identifier);
  const UpdateCheck::UpdateChecker::Surroundings surroundings = {
      .stateFolder = DesktopSupport::userStateFolder() / "deskloom",
      .now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now()),
      .kernelRelease = kernelRelease(),
      .strings = strings,
      .log = log};
  UpdateCheck::UpdateChecker(*settings, surroundings).run();
}

int answer(std::string_view option) {
  if (option == "--help")
    std::fputs(help, stdout);
  else if (option == "--version")
    std::puts("update-check " DESKLOOM_VERSION);
  else
    return 2;
  return 0;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount == 1) {
    checkForUpdate();
    return 0;
  }
  const int status = argumentCount == 2 ? answer(arguments[1]) : 2;
  if (status != 0)
    std::fputs("update-check: unexpected arguments (see --help)\n", stderr);
  return status;
}
