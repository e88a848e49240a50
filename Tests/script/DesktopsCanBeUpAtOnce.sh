# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

# Each prints its display and runs until all have started.
mkfifo "$scratch/up" "$scratch/go"
exec 3<>"$scratch/up" 4<>"$scratch/go"
for session in "${sessions[@]}" "${sessions[@]}"; do
  # shellcheck disable=SC2016 # expanded on the desktop
  "$desktop" --session "$session" \
    bash -c 'echo "$DISPLAY $DBUS_SESSION_BUS_ADDRESS" >&3; read -r -u 4 _; xprop -root >/dev/null' &
  pids+=($!)
done
for _ in "${pids[@]}"; do read -r -u 3 line && echo "$line" >>"$scratch/desktops"; done
for _ in "${pids[@]}"; do echo go >&4; done
for pid in "${pids[@]}"; do wait "$pid"; done
expect "$(cut -d ' ' -f 1 "$scratch/desktops" | sort -u | wc -l)" "${#pids[@]}"
expect "$(cut -d ' ' -f 2 "$scratch/desktops" | sort -u | wc -l)" "${#pids[@]}"
