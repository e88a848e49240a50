# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"

install_to "$scratch/prefix"
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
$bundle/update-check
share/applications/com.quillary.Gleanery.desktop
share/applications/mimeinfo.cache
share/dbus-1/services/com.quillary.Gleanery.service
share/icons/hicolor/scalable/apps/com.quillary.Gleanery.svg
share/metainfo/com.quillary.Gleanery.metainfo.xml"
expect "$(readlink "$scratch/prefix/bin/gleanery")" "../$bundle/gleanery"
expect "$(find "$scratch/prefix" -type f -executable -printf '%f\n' | LC_ALL=C sort)" $'gleanery\nupdate-check'

# The host is there for those who ask for it.
install_to "$scratch/development" --component development
expect "$(files_in "$scratch/development")" 'bin/deskloom-host
share/applications/com.quillary.Deskloom.desktop
share/applications/mimeinfo.cache
share/dbus-1/services/com.quillary.Deskloom.service'
