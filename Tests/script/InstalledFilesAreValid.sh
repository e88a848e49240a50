# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"

install_to "$scratch/prefix" --component plugin
install_to "$scratch/prefix" --component development
install_to "$scratch/sdk" --component sdk

expect "$(desktop-file-validate "$scratch"/prefix/share/applications/*.desktop)" ''
metadata=$scratch/prefix/share/metainfo/com.quillary.Gleanery.metainfo.xml
appstreamcli validate --no-net --no-color "$metadata" >"$scratch/said" || fail "$(cat "$scratch/said")"
if grep --extended-regexp '^[EWIP]:' "$scratch/said"; then fail "something could be better"; fi
newest=$(sed -nE 's/.*<release version="([^"]*)".*/\1/p' "$metadata" | head -n 1)
expect "$newest" "$("$scratch/prefix/bin/gleanery" --version)"

for program in "$scratch/prefix/$bundle/"{gleanery,deskloom-windows.so} "$scratch/prefix/bin/deskloom-host" \
  "$scratch/sdk/lib/deskloom/sdk/update-check"; do
  if readelf --dynamic "$program" | grep --extended-regexp 'RPATH|RUNPATH'; then fail "$program looks for libraries there"; fi
done
