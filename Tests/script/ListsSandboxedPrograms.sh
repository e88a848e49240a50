# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/bubblewrap.bash"

cat >"$scratch/applications" <<'END_OF_APPLICATIONS'
scratch=$1 applescript=$2
fail() {
  echo "$*" >&2
  exit 1
}
expect() {
  [[ $1 == "$2" ]] || fail "expected: $2, but it was: $1"
}

# The windows' numbers, as soon as the window manager lists this many.
windows() {
  local line ids=()
  while read -r line; do
    read -ra ids <<<"${line#*#}"
    if ((${#ids[@]} == $1)); then
      echo "${ids[@]%,}"
      return
    fi
  done < <(exec xprop -root -spy _NET_CLIENT_LIST)
}
# Name, file and process of each application, by a program that is started in whatever is given.
applications() {
  "$@" "$applescript" -e 'tell application "System Events"
    set found to ""
    repeat with each in every process
      set found to found & (name of each) & "|" & (POSIX path of file of each) & "|" & (unix id of each) & linefeed
    end repeat
  end tell
  found'
}
number_of() {
  xprop -id "$1" _NET_WM_PID | sed 's/.* //'
}

entries=$HOME/.local/share/applications
mkdir -p "$entries"
cat >"$entries/sandboxed.desktop" <<'END'
[Desktop Entry]
Type=Application
Name=Sandboxed
Exec=flatpak run org.example.Sandboxed
X-Flatpak=org.example.Sandboxed
END
printf '[Application]\nname=org.example.Sandboxed\n' >"$scratch/flatpak-info"

# A program in a sandbox like a Flatpak's, whose class is that of an application outside.
sandbox=(bwrap --die-with-parent --unshare-pid --ro-bind /usr /usr --symlink usr/bin /bin --symlink usr/lib /lib
  --symlink usr/lib64 /lib64 --ro-bind /etc /etc --proc /proc --dev /dev --tmpfs /tmp
  --ro-bind /tmp/.X11-unix /tmp/.X11-unix --ro-bind "$scratch/flatpak-info" /.flatpak-info)
if [[ -n ${XAUTHORITY:-} ]]; then sandbox+=(--ro-bind "$XAUTHORITY" "$XAUTHORITY"); fi
"${sandbox[@]}" xterm 2>/dev/null &
bubblewrap=$!
window=$(windows 1)
IFS='|' read -r name file process <<<"$(applications)"
expect "$name $file" "Sandboxed $entries/sandboxed.desktop"
expect "$(<"/proc/$process/comm")" xterm
read -r _ _ inside < <(grep ^NSpid: "/proc/$process/status")
expect "$(number_of "$window")" "$inside"
[[ $inside != "$process" ]] || fail "xterm is in no PID namespace of its own"

# Without its entry it is left out, and the program outside is not taken for it.
mv "$entries/sandboxed.desktop" "$entries/sandboxed"
problem=$(XDG_DATA_DIRS=$scratch applications 2>&1 >/dev/null)
[[ $problem == *"it is the Flatpak org.example.Sandboxed, which has no desktop entry."* ]] || fail "the log says: $problem"
kill "$bubblewrap"
wait "$bubblewrap" || true
windows 0 >/dev/null

# A program outside, as one that is in a PID namespace of its own sees it. In that namespace, another process has its
# number.
cat >"$entries/clock.desktop" <<'END'
[Desktop Entry]
Type=Application
Name=Outside
Exec=xclock
StartupWMClass=XClock
END
xclock 2>/dev/null &
xclock=$!
window=$(windows 1)
expect "$(number_of "$window")" "$xclock"
cat >"$scratch/beside" <<'END'
echo $(($1 - 1)) >/proc/sys/kernel/ns_last_pid
sleep 120 &
if [ "$!" != "$1" ]; then exit 1; fi
shift
"$@"
kill "$!"
END
entry="Outside|$entries/clock.desktop"
for told in told untold; do
  expect "$(applications)" "$entry|$xclock"
  expect "$(applications bwrap --dev-bind / / --unshare-pid)" "$entry|$xclock"
  expect "$(applications bwrap --dev-bind / / --unshare-pid --proc /proc --cap-add ALL sh "$scratch/beside" "$xclock")" \
    "$entry|missing value"
  if [[ $told == told ]]; then xprop -id "$window" -remove _NET_WM_PID; fi
done
kill "$xclock"
windows 0 >/dev/null
rm "$entries/clock.desktop"

# A program as in an AppImage that is mounted, and one that it has started.
mkdir -p "$scratch/mount/usr/bin"
cp /usr/bin/xclock "$scratch/mount/usr/bin/clock"
printf '[Desktop Entry]\nType=Application\nName=Clock\n' >"$scratch/mount/clock.desktop"
touch "$scratch/Clock.AppImage"
export APPIMAGE=$scratch/Clock.AppImage APPDIR=$scratch/mount
"$APPDIR/usr/bin/clock" 2>/dev/null &
clock=$!
windows 1 >/dev/null
xclock 2>/dev/null &
xclock=$!
windows 2 >/dev/null
expect "$(applications)" "Clock|$APPIMAGE|$clock
xclock|/usr/bin/xclock|$xclock"
END_OF_APPLICATIONS

# The time is reached only if something is broken.
"$desktop" timeout 120 bash -euo pipefail "$scratch/applications" "$scratch" "$(dirname "$2")/bin/applescript"
