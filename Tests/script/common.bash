# shellcheck shell=bash
# Sourced by the tests of the scripts, each of which is given the top of the tree and the build's data folder.
set -euo pipefail

# shellcheck disable=SC2034 # for the tests
desktop=$1/script/desktop
scratch=$(mktemp --directory)
trap 'rm -rf -- "$scratch"' EXIT

fail() {
  echo "$*" >&2
  exit 1
}

expect() {
  [[ $1 == "$2" ]] || fail "expected: $2, but it was: $1"
}

# Whether the process runs: one that has ended has no command line, even while its parent has not asked for its status.
runs() {
  [[ -n $(tr -d '\0' 2>/dev/null <"/proc/$1/cmdline") ]]
}
