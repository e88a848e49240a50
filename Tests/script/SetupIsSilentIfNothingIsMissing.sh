# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

expect "$("$1/script/setup" build test 2>&1)" ''
