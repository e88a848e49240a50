# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"

install_to "$scratch/prefix"
install_to "$scratch/prefix" --component development
for folder in "$1" "$build"; do
  if grep --recursive --files-with-matches --fixed-strings "$folder/" "$scratch/prefix"; then fail "these files name $folder"; fi
done
