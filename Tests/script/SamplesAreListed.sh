# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

# It returns with success once the programs tell of everything that it has opened.
for what in apps finder safari chrome; do
  "$desktop" --data-dir "$2" "$1/script/open-samples" "$what" "$2/../bin" || fail "$what is not listed"
done
