# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

# A tree with nothing to build, and tests that fail in the runs in the file "failing".
mkdir -p "$scratch/script" "$scratch/bin" "$scratch/build/dev/Testing/Temporary"
cp "$1/script/test" "$scratch/script"
ln -s /bin/true "$scratch/script/setup"
ln -s /bin/true "$scratch/bin/cmake"
cat >"$scratch/bin/ctest" <<'END'
#!/usr/bin/env bash
echo "$*" >>arguments
run=$(wc -l <arguments)
echo "summary of run $run"
grep --quiet --line-regexp "$run" failing || exit 0
printf '7:A/Test\n%s:B/Test%s\n' "$run" "$run" >build/dev/Testing/Temporary/LastTestsFailed.log
exit 8
END
chmod +x "$scratch/bin/ctest"

# Runs script/test, and records its output and its exit status.
run_tests() {
  rm -f "$scratch/arguments"
  status=0
  said=$(PATH=$scratch/bin:$PATH "$scratch/script/test" "$@") || status=$?
}

printf '2\n3\n' >"$scratch/failing"
run_tests --repeat 4 -R Name
expect "$status" 1
expect "$said" "Run 1 of 4
summary of run 1
Run 2 of 4
summary of run 2
Run 3 of 4
summary of run 3
Run 4 of 4
summary of run 4
      2 A/Test
      1 B/Test2
      1 B/Test3
4 runs, 2 failed"
expect "$(grep --count -- ' --parallel [0-9]* -R Name$' "$scratch/arguments")" 4

echo 2 >"$scratch/failing"
run_tests --repeat 2
expect "$status" 1

: >"$scratch/failing"
run_tests -R Name --repeat 2
expect "$status" 0
expect "${said##*$'\n'}" '2 runs, 0 failed'

# A single run ends with the test runner's output and exit status. ctest has an option of the same name.
run_tests --repeat until-fail:3
expect "$status" 0
expect "$said" 'summary of run 1'
expect "$(grep --count -- ' --repeat until-fail:3$' "$scratch/arguments")" 1
echo 1 >"$scratch/failing"
run_tests
expect "$status" 8
expect "$said" 'summary of run 1'
