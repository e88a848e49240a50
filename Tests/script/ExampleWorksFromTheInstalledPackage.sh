# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"
source "$(dirname "${BASH_SOURCE[0]}")/sdk.bash"

# Built as its author would build it, outside this tree, and installed beside Gleanery.
install_to "$scratch/prefix" --component sdk
install_to "$scratch/prefix" --component plugin
install_to "$scratch/prefix" --component development
cp -r "$tree/Examples/RecentFiles" "$scratch/project"
{
  configure "$scratch/project" "$scratch/build" -DCMAKE_BUILD_TYPE= -DCMAKE_PREFIX_PATH="$scratch/prefix" &&
    cmake --build "$scratch/build" --parallel 2 &&
    ctest --test-dir "$scratch/build" --output-on-failure &&
    cmake --install "$scratch/build" --prefix "$scratch/prefix"
} >"$scratch/said" 2>&1 || fail "$(cat "$scratch/said")"

expect "$(ls "$scratch/prefix/lib/deskloom/plugins")" $'com.quillary.Gleanery\ncom.quillary.RecentFiles'

driver=$build/tests/RecentFilesOnTheDesktop
RECENT_FILES_PROGRAM=$scratch/prefix/bin/recent-files "$desktop" --data-dir "$scratch/prefix/share" "$driver" \
  >"$scratch/said" 2>&1 || fail "$(cat "$scratch/said")"
