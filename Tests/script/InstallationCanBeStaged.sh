# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"

prefix=/nowhere/prefix
DESTDIR=$scratch/stage install_to "$prefix" --component plugin
DESTDIR=$scratch/stage install_to "$prefix" --component development
[[ ! -e $prefix ]] || fail "something was installed to $prefix"
expect "$(ls "$scratch/stage$prefix")" $'bin\nlib\nshare'

for application in Gleanery Deskloom; do
  for entry in "applications/com.quillary.$application.desktop" "dbus-1/services/com.quillary.$application.service"; do
    grep --quiet "^Exec=\"$prefix/bin/" "$scratch/stage$prefix/share/$entry" || fail "$entry names another prefix"
  done
done
if grep --recursive --files-with-matches --fixed-strings "$scratch" "$scratch/stage"; then fail "these files name the staging folder"; fi

# Caches belong to the final place of the files.
expect "$(find "$scratch/stage" -name '*.cache')" ''
