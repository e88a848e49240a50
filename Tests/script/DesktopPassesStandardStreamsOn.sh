# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

expect "$(echo in | "$desktop" cat)" in
expect "$("$desktop" bash -c 'echo out; echo err >&2' 2>"$scratch/err")" out
expect "$(cat "$scratch/err")" err
