#include "DesktopSupport/GIO/GIO.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/SharedLibrary.h"

namespace DesktopSupport {

namespace {

struct Functions {
  decltype(&g_object_unref) unref = nullptr;
  decltype(&g_file_new_for_uri) fileForURI = nullptr;
  decltype(&g_file_get_path) pathOfFile = nullptr;
  decltype(&g_desktop_app_info_new_from_filename) applicationFromFile = nullptr;
  decltype(&g_app_info_launch_uris) launchWithURIs = nullptr;
};

const std::expected<Functions, std::string>& gio() {
  static const auto loaded = [] {
    SharedLibrary library("libgio-2.0.so.0");
    Functions functions;
    library.find("g_object_unref", functions.unref);
    library.find("g_file_new_for_uri", functions.fileForURI);
    library.find("g_file_get_path", functions.pathOfFile);
    library.find("g_desktop_app_info_new_from_filename", functions.applicationFromFile);
    library.find("g_app_info_launch_uris", functions.launchWithURIs);
    return library.with(functions);
  }();
  return loaded;
}

}  // namespace

std::optional<std::string> mountedPath(const std::string& uri) {
  if (!gio())
    return std::nullopt;
  GFile* const location = gio()->fileForURI(uri.c_str());
  const CharsHandle path(gio()->pathOfFile(location));
  gio()->unref(location);
  return path ? std::optional<std::string>(path.get()) : std::nullopt;
}

std::expected<void, std::string> startWithURL(const std::filesystem::path& desktopEntry, std::string url) {
  if (!gio())
    return std::unexpected(gio().error());
  GDesktopAppInfo* const application = gio()->applicationFromFile(desktopEntry.c_str());
  if (application == nullptr)
    return std::unexpected("its handler " + desktopEntry.string() + " cannot be started");
  const ListHandle urls(g_list_append(nullptr, url.data()));
  ErrorHandle error;
  // GLib's own macro would check the type with a function that is not loaded here.
  const gboolean isStarted =
      gio()->launchWithURIs(reinterpret_cast<GAppInfo*>(application), urls.get(), nullptr, Out(error));
  gio()->unref(application);
  if (isStarted == FALSE)
    return std::unexpected(std::string(error->message));
  return {};
}

}  // namespace DesktopSupport
