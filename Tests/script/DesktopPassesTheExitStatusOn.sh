# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

for session in "${sessions[@]}"; do
  for status in 0 1 77; do
    actual=0
    "$desktop" --session "$session" bash -c "exit $status" || actual=$?
    expect "$actual" "$status"
  done
done

actual=0
"$desktop" bash -c 'kill -s SEGV $$' 2>/dev/null || actual=$?
expect "$actual" $((128 + 11))
