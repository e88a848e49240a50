# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"
package=lib/cmake/DeskloomSDK

install_to "$scratch/prefix" --component plugin
expect "$(files_in "$scratch/prefix")" "bin/gleanery
$bundle/Info.ini
$bundle/deskloom-windows.so
$bundle/gleanery
$bundle/icon.svg
$bundle/locale/de/LC_MESSAGES/com.quillary.Gleanery.mo
$bundle/locale/es/LC_MESSAGES/com.quillary.Gleanery.mo
$bundle/locale/fr/LC_MESSAGES/com.quillary.Gleanery.mo
$bundle/locale/ja/LC_MESSAGES/com.quillary.Gleanery.mo
$bundle/locale/zh_CN/LC_MESSAGES/com.quillary.Gleanery.mo
share/applications/com.quillary.Gleanery.desktop
share/applications/mimeinfo.cache
share/dbus-1/services/com.quillary.Gleanery.service
share/icons/hicolor/scalable/apps/com.quillary.Gleanery.svg
share/man/man1/gleanery.1.gz
share/metainfo/com.quillary.Gleanery.metainfo.xml"
expect "$(readlink "$scratch/prefix/bin/gleanery")" "../$bundle/gleanery"
expect "$(find "$scratch/prefix" -type f -executable -printf '%f\n' | LC_ALL=C sort)" gleanery

configuration=$(sed -n 's/^CMAKE_BUILD_TYPE:STRING=//p' "$build/CMakeCache.txt" | tr '[:upper:]' '[:lower:]')

# The package for other plug-ins' projects. The headers are those of the tree.
install_to "$scratch/sdk" --component sdk
headers() { (cd "$1" && find DeskloomSDK Platform BrimlaceTextView -name '*.h' | LC_ALL=C sort); }
expect "$(cd "$scratch/sdk/include/deskloom" && find . -type f -printf '%P\n' | LC_ALL=C sort)" "$(headers "$1")"
expect "$(files_in "$scratch/sdk" | grep --invert-match '^include/deskloom/')" "bin/applescript
$package/DeskloomPlugin.cmake
$package/DeskloomSDKConfig.cmake
$package/DeskloomSDKConfigVersion.cmake
$package/DeskloomSDKTargets-$configuration.cmake
$package/DeskloomSDKTargets.cmake
$package/plugin/Bundle.cmake
$package/plugin/Entries.cmake
$package/plugin/install.cmake
$package/plugin/merge-catalogues.cmake
$package/plugin/plugin.desktop.in
$package/plugin/plugin.service.in
lib/deskloom/sdk/deskloom-windows.so
lib/deskloom/sdk/libAccessibleWindows.a
lib/deskloom/sdk/libAppleScript.a
lib/deskloom/sdk/libAppleScriptExpressions.a
lib/deskloom/sdk/libAppleScriptOperators.a
lib/deskloom/sdk/libAppleScriptReferences.a
lib/deskloom/sdk/libAppleScriptRunning.a
lib/deskloom/sdk/libAppleScriptStatements.a
lib/deskloom/sdk/libAppleScriptSyntax.a
lib/deskloom/sdk/libAppleScriptText.a
lib/deskloom/sdk/libAppleScriptValues.a
lib/deskloom/sdk/libBrimlaceTextView.a
lib/deskloom/sdk/libBrowserApplications.a
lib/deskloom/sdk/libBrowserSessions.a
lib/deskloom/sdk/libChromiumDevTools.a
lib/deskloom/sdk/libChromiumSessions.a
lib/deskloom/sdk/libCompanionSessions.a
lib/deskloom/sdk/libDeskloomApplication.a
lib/deskloom/sdk/libDeskloomSDK.a
lib/deskloom/sdk/libDeskloomSDKConfiguration.a
lib/deskloom/sdk/libDeskloomSDKHost.a
lib/deskloom/sdk/libDeskloomSDKJSON.a
lib/deskloom/sdk/libDeskloomSDKResources.a
lib/deskloom/sdk/libDesktopBus.a
lib/deskloom/sdk/libDesktopEntries.a
lib/deskloom/sdk/libDesktopGIO.a
lib/deskloom/sdk/libDesktopProcesses.a
lib/deskloom/sdk/libDesktopScreen.a
lib/deskloom/sdk/libDesktopSystem.a
lib/deskloom/sdk/libDesktopWindows.a
lib/deskloom/sdk/libFinderApplication.a
lib/deskloom/sdk/libFirefoxSessions.a
lib/deskloom/sdk/libGNOMEShellWindows.a
lib/deskloom/sdk/libGNOMEWebSessions.a
lib/deskloom/sdk/libKWinWindows.a
lib/deskloom/sdk/libLinux.a
lib/deskloom/sdk/libLinuxLaunching.a
lib/deskloom/sdk/libPlatform.a
lib/deskloom/sdk/libPlatformFake.a
lib/deskloom/sdk/libPlatformText.a
lib/deskloom/sdk/libScriptableApps.a
lib/deskloom/sdk/libScriptableAppsErrors.a
lib/deskloom/sdk/libSystemEventsApplication.a
lib/deskloom/sdk/libWaylandWindows.a
lib/deskloom/sdk/libX11Windows.a
lib/deskloom/sdk/update-check
lib/pkgconfig/deskloom-sdk.pc
share/deskloom/locale/de/LC_MESSAGES/DeskloomSDK.mo
share/deskloom/locale/es/LC_MESSAGES/DeskloomSDK.mo
share/deskloom/locale/fr/LC_MESSAGES/DeskloomSDK.mo
share/deskloom/locale/ja/LC_MESSAGES/DeskloomSDK.mo
share/deskloom/locale/zh_CN/LC_MESSAGES/DeskloomSDK.mo
share/man/man1/applescript.1.gz"

# The host for development.
install_to "$scratch/host" --component host
expect "$(files_in "$scratch/host")" 'bin/deskloom-host
share/man/man1/deskloom-host.1.gz'

# The extension of GNOME Shell, and the setting that enables it.
install_to "$scratch/shell" --component gnome-shell
expect "$(files_in "$scratch/shell")" 'share/glib-2.0/schemas/00_com.quillary.Gleanery.gschema.override
share/gnome-shell/extensions/gleanery@quillary.com/extension.js
share/gnome-shell/extensions/gleanery@quillary.com/metadata.json'

# The browsers' companion: the extension for each family, the program that it talks to, and what tells browsers of it.
install_to "$scratch/browser" --component browser
host=native-messaging-hosts/com.quillary.gleanery.tabs.json
expect "$(files_in "$scratch/browser")" "etc/chromium/$host
lib/deskloom/gleanery-tabs
lib/mozilla/$host
share/chromium/extensions/gleanery/companion.js
share/chromium/extensions/gleanery/manifest.json
share/chromium/extensions/gleanery/windows.js
share/mozilla/extensions/{ec8030f7-c20a-464f-9b0e-13a3a9e97384}/gleanery@quillary.com.xpi"

# By default, all five are installed.
install_to "$scratch/all"
expect "$(files_in "$scratch/all")" "$(for part in prefix sdk host shell browser; do files_in "$scratch/$part"; done | LC_ALL=C sort)"

# The host's entries are installed on request.
install_to "$scratch/development" --component development
expect "$(files_in "$scratch/development")" 'bin/deskloom-host
share/applications/com.quillary.Deskloom.desktop
share/applications/mimeinfo.cache
share/dbus-1/services/com.quillary.Deskloom.service'
