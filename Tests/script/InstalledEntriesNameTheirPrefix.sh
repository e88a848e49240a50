# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"

command_in() {
  sed -n 's/^Exec=//p' "$1"
}

for prefix in "$scratch/one" "$scratch/two words"; do
  install_to "$prefix" --component plugin
  expect "$(command_in "$prefix/share/applications/com.quillary.Gleanery.desktop")" "\"$prefix/bin/gleanery\" %u"
  expect "$(command_in "$prefix/share/dbus-1/services/com.quillary.Gleanery.service")" \
    "\"$prefix/bin/gleanery\" --dbus-activated"
  if grep --recursive --files-with-matches --fixed-strings "$build" "$prefix/share" "$prefix/$bundle/Info.ini"; then
    fail "these entries name the build"
  fi
done
