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
expect_failure 125 --session
expect_failure 125 --session wrong true
expect_failure 125 --session sway --enable-extension a@example.com true
expect_failure 127 "$scratch/missing"

# A compositor that does not start: its log is part of the error.
mkdir "$scratch/bin"
for program in sway gnome-shell; do
  printf '#!/bin/sh\necho "no seat is free" >&2\nexit 1\n' >"$scratch/bin/$program"
  chmod +x "$scratch/bin/$program"
done
export PATH=$scratch/bin:$PATH
for session in sway gnome; do
  expect_failure 125 --session "$session" true
  grep --quiet "no seat is free" "$scratch/err" || fail "the log is not in: $(cat "$scratch/err")"
done
