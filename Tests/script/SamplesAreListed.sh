# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

# It succeeds when everything that it has opened is listed.
for what in apps finder safari chrome; do
  "$desktop" --data-dir "$2" "$1/script/open-samples" "$what" "$2/../bin" || fail "$what is not listed"
done
