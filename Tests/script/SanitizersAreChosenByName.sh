# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

# A tree with nothing to build, and tests that fail under the presets in the file "failing".
mkdir -p "$scratch/script" "$scratch/bin"
cp "$1/script/sanitize" "$scratch/script"
ln -s /bin/true "$scratch/script/setup"
cat >"$scratch/bin/cmake" <<'END'
#!/usr/bin/env bash
[[ $1 != --build ]] || echo "build $3" >>steps
END
cat >"$scratch/bin/ctest" <<'END'
#!/usr/bin/env bash
echo "test $2 ${*:6}" >>steps
! grep --quiet --line-regexp "$2" failing
END
chmod +x "$scratch/bin/cmake" "$scratch/bin/ctest"

# Runs script/sanitize, and records its steps and its exit status.
sanitize() {
  rm -f "$scratch/steps"
  status=0
  PATH=$scratch/bin:$PATH "$scratch/script/sanitize" "$@" || status=$?
  steps=$(<"$scratch/steps")
}

: >"$scratch/failing"
sanitize
expect "$status $steps" '0 build asan
test asan 
build threads
test threads '

sanitize threads -R Name
expect "$status $steps" '0 build threads
test threads -R Name'

sanitize address --without-browsers
expect "$status $steps" '0 build asan
test asan-without-browsers '

# Both run, even if the first fails.
echo asan >"$scratch/failing"
sanitize address threads
expect "$status $steps" '1 build asan
test asan 
build threads
test threads '
