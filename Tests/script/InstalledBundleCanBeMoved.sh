# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"

install_to "$scratch/prefix" --component plugin
version=$("$scratch/prefix/bin/gleanery" --version)
mkdir "$scratch/a b"
mv "$scratch/prefix/$bundle" "$scratch/a b/moved"
rm -r "$scratch/prefix"

expect "$("$scratch/a b/moved/gleanery" --version)" "$version"

# Without a host and a display, it prints its message. That is in German, so it has found its catalogue.
said=$(env --unset=DISPLAY --unset=WAYLAND_DISPLAY DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere LANGUAGE=de LANG=C.UTF-8 \
  "$scratch/a b/moved/gleanery" 2>&1)
[[ $said == *'Das Skript konnte nicht ausgeführt werden'* ]] || fail "$said"
