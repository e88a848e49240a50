# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

desktop-file-validate "$2"/applications/*.desktop

handler_of() {
  "$desktop" --data-dir "$2" gio mime "x-scheme-handler/$1"
}
[[ $(handler_of deskloom "$2") == *': com.quillary.Deskloom.desktop'* ]] || fail "$(handler_of deskloom "$2")"
[[ $(handler_of deskloomplugin "$2") == *': com.quillary.Gleanery.desktop'* ]] || fail "$(handler_of deskloomplugin "$2")"
