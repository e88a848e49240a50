# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

for script in "$1"/script/*; do
  [[ -f $script ]] || continue
  help=$(cd / && "$script" --help)
  [[ $help == "Usage: script/${script##*/}"* ]] || fail "$script: $help"
done
