# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

expect_failure() {
  local expected=$1 actual=0
  shift
  "$desktop" "$@" >"$scratch/out" 2>"$scratch/err" || actual=$?
  expect "$actual" "$expected"
  [[ -s $scratch/err ]] || fail "no error message for: $*"
}

expect_failure 125
expect_failure 125 --wrong true
expect_failure 125 --data-dir
expect_failure 125 --data-dir "$scratch/missing" true
expect_failure 127 "$scratch/missing"
