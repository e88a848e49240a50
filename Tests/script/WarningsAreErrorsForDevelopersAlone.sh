# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
cd "$1"

# Prints whether a preset compiles with warnings and with -Werror: yes or no, twice.
options_of() {
  local option
  cmake --preset "$1" -B "$scratch/$1" >"$scratch/said" 2>&1 || fail "$(cat "$scratch/said")"
  for option in -Wconversion -Werror; do
    if grep --quiet -- " $option " "$scratch/$1/compile_commands.json"; then echo yes; else echo no; fi
  done | paste --serial --delimiters=' '
}

expect "dev: $(options_of dev)" 'dev: yes yes'
expect "asan: $(options_of asan)" 'asan: yes yes'
# A newer compiler, which warns about more, must not keep users from building.
expect "release: $(options_of release)" 'release: yes no'
