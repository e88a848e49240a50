# shellcheck shell=bash
# Sourced by the tests of the scripts. Their arguments are the top of the tree and the build's data folder.
set -euo pipefail

# shellcheck disable=SC2034 # for the tests
desktop=$1/script/desktop
# shellcheck disable=SC2034
sessions=(openbox sway kwin gnome mutter weston)
scratch=$(mktemp --directory)
trap 'rm -rf -- "$scratch"' EXIT

fail() {
  echo "$*" >&2
  exit 1
}

expect() {
  [[ $1 == "$2" ]] || fail "expected: $2, but it was: $1"
}

# Whether the process runs. One that has ended has no command line, even before its parent has waited for it.
runs() {
  [[ -n $(tr -d '\0' 2>/dev/null <"/proc/$1/cmdline") ]]
}
