# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

cat >"$scratch/command" <<'END'
cd "$1"
echo "$HOME" >home
note() { echo "$!" >>pids; }
sleep 4711 &
note
# A process that leaves its session and its parent, one that ignores signals, one that hides its environment, one that does
# that and leaves its parent with a file open, and one in a window.
(setsid sleep 4711 & note)
bash -c 'trap "" TERM HUP; while :; do sleep 4711; done' &
note
(env --ignore-environment sleep 4711 & note; exec sleep 4711) &
note
(env --ignore-environment sleep 4711 >"$HOME/open" & note)
mkfifo up
xterm -e bash -c 'echo up >up; exec sleep 4711' &
note
read -r <up
# The processes that the session bus starts for screen readers: a launcher, a bus and a registry.
address=$(gdbus call --session --dest org.a11y.Bus --object-path /org/a11y/bus --method org.a11y.Bus.GetAddress)
address=${address#*\'}
gdbus call --address "${address%\'*}" --dest org.a11y.atspi.Registry --object-path /org/a11y/atspi/accessible/root \
  --method org.a11y.atspi.Accessible.GetRole >/dev/null
# The desktop's own processes.
grep --files-with-matches --null-data --line-regexp --no-messages "XDG_RUNTIME_DIR=$XDG_RUNTIME_DIR" \
  /proc/[0-9]*/environ | sed 's|/proc/\([0-9]*\)/.*|\1|' >>pids
END

check() {
  local pid session=$1 folder=$scratch/$1
  mkdir "$folder"
  "$desktop" --session "$session" bash "$scratch/command" "$folder" 2>/dev/null
  while read -r pid; do
    if runs "$pid"; then fail "$session: still running: $(tr '\0' ' ' <"/proc/$pid/cmdline")"; fi
  done <"$folder/pids"
  (($(sort -u "$folder/pids" | wc -l) > 10)) || fail "$session: too few processes were recorded"
  [[ ! -e $(dirname "$(cat "$folder/home")") ]] || fail "$session: its folder is still there"
}

for session in "${sessions[@]}"; do
  check "$session" &
  pids+=($!)
done
for pid in "${pids[@]}"; do wait "$pid"; done
