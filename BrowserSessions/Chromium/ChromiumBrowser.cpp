#include "BrowserSessions/Chromium/ChromiumBrowser.h"

namespace BrowserSessions {

const std::vector<ChromiumBrowser>& chromiumBrowsers() {
  static const std::vector<ChromiumBrowser> browsers = {
      {.name = "Google Chrome",
       .programs = {"chrome"},
       .configurationFolders = {"google-chrome", "google-chrome-beta", "google-chrome-unstable",
                                "google-chrome-canary"},
       .flatpakFolders = {{"com.google.Chrome", "google-chrome"}, {"com.google.ChromeDev", "google-chrome-unstable"}},
       .snapFolders = {}},
      {.name = "Chromium",
       .programs = {"chromium", "chromium-browser", "chrome"},
       .configurationFolders = {"chromium"},
       .flatpakFolders = {{"org.chromium.Chromium", "chromium"},
                          {"io.github.ungoogled_software.ungoogled_chromium", "chromium"}},
       .snapFolders = {"snap/chromium/common/chromium"}},
      {.name = "Brave",
       .programs = {"brave"},
       .configurationFolders = {"BraveSoftware/Brave-Browser", "BraveSoftware/Brave-Browser-Beta",
                                "BraveSoftware/Brave-Browser-Nightly"},
       .flatpakFolders = {{"com.brave.Browser", "BraveSoftware/Brave-Browser"}},
       .snapFolders = {"snap/brave/current/.config/BraveSoftware/Brave-Browser"}},
      {.name = "Microsoft Edge",
       .programs = {"msedge"},
       .configurationFolders = {"microsoft-edge", "microsoft-edge-beta", "microsoft-edge-dev"},
       .flatpakFolders = {{"com.microsoft.Edge", "microsoft-edge"}, {"com.microsoft.EdgeDev", "microsoft-edge-dev"}},
       .snapFolders = {}},
      {.name = "Vivaldi",
       .programs = {"vivaldi-bin", "vivaldi"},
       .configurationFolders = {"vivaldi", "vivaldi-snapshot"},
       .flatpakFolders = {{"com.vivaldi.Vivaldi", "vivaldi"}},
       .snapFolders = {"snap/vivaldi/current/.config/vivaldi"}},
      {.name = "Opera",
       .programs = {"opera", "opera-beta", "opera-developer"},
       .configurationFolders = {"opera", "opera-beta", "opera-developer"},
       .flatpakFolders = {{"com.opera.Opera", "opera"}},
       .snapFolders = {"snap/opera/current/.config/opera"}}};
  return browsers;
}

}  // namespace BrowserSessions
