# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"

sdk="$scratch/an sdk"
install_to "$sdk" --component sdk
install_to "$sdk" --component host
install_to "$scratch/development" --component development
# The program needs the archives' compiler options, such as a sanitizer.
CXXFLAGS=$(sed -n 's/^CMAKE_CXX_FLAGS:STRING=//p' "$build/CMakeCache.txt")
export CXXFLAGS

cd "$scratch"
"$1/script/new-plugin" --sdk "$sdk" "Recent Files" com.example.Recent-Files "a project" >/dev/null
readonly run="$scratch/a project/run" line='^deskloom://gleanery/.*Hello%20from%20Recent%20Files'

expect_said() {
  grep --quiet --extended-regexp -- "$1" "$scratch/said" || fail "expected: $1, but it said: $(cat "$scratch/said")"
}

# Without a session bus it starts one. It installs only to the prefix given.
mkdir "$scratch/home"
env --unset=DBUS_SESSION_BUS_ADDRESS --unset=DISPLAY --unset=WAYLAND_DISPLAY --unset=XDG_DATA_HOME \
  XDG_RUNTIME_DIR="$scratch" HOME="$scratch/home" "$run" --prefix "$scratch/a prefix" >"$scratch/said" 2>&1 ||
  fail "$(cat "$scratch/said")"
expect_said '100% tests passed'
expect_said "$line"
expect "$(ls -A "$scratch/home")" ''
[[ -x "$scratch/a prefix/bin/recent-files" ]] || fail "not installed: $(find "$scratch/a prefix")"

# A host that runs on the session bus gets the result. The session knows the plug-in although its bus was started earlier.
cat >"$scratch/command" <<'END'
timeout 60 "$1/bin/deskloom-host" --exit-after 1 &
host=$!
gdbus wait --session --timeout 60 com.quillary.Deskloom
"$2"
wait "$host"
END
"$desktop" --data-dir "$scratch/development/share" bash -euo pipefail "$scratch/command" "$scratch/development" "$run" >"$scratch/said" 2>&1 ||
  fail "$(cat "$scratch/said")"
expect_said "$line"
expect_said "The host on the session bus has received it"
