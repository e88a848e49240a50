# shellcheck shell=bash
# Sourced by the sessions of Wayland compositors: what they have in common.
# shellcheck disable=SC2034,SC2154 # script/desktop reads or sets them
needs=(Xwayland dbus-update-activation-environment)

# What a compositor tells the programs that it starts, in the order in which $place/announce passes it on.
displays=(WAYLAND_DISPLAY DISPLAY XAUTHORITY SWAYSOCK)

# Sets the environment of the compositor and starts the session bus. Makes $place/announce, a program for the compositor to
# run when it is up.
prepare_wayland() {
  export XDG_SESSION_TYPE=wayland LIBGL_ALWAYS_SOFTWARE=1
  start_bus session bus
  export DBUS_SESSION_BUS_ADDRESS=$bus_address
  # For the sockets of Xwayland. Where no system manager has made this folder, compositors don't.
  mkdir --mode=1777 /tmp/.X11-unix 2>/dev/null || true
  mkfifo "$place/displays"
  cat >"$place/announce" <<'END'
#!/bin/sh
printf '%s\n' "${WAYLAND_DISPLAY-}" "${DISPLAY-}" "${XAUTHORITY-}" "${SWAYSOCK-}" >"${0%/*}/displays"
END
  chmod +x "$place/announce"
}

# run_compositor COMMAND [ARGUMENT]...: starts a compositor that runs $place/announce when it is up, and waits for that. The
# compositor has the pipe open as well, so that its end ends the wait.
run_compositor() {
  become "$@" 5>"$place/displays" >"$place/compositor.log" 2>&1 &
  parts+=("$!")
  read_displays <"$place/displays" || fail "$session did not start:" "$place/compositor.log"
  publish_displays
}

read_displays() {
  local name
  for name in "${displays[@]}"; do read -r -t "$patience" "${name?}" || return; done
}

# Makes the displays known to the command and to the programs that the bus starts.
publish_displays() {
  local name
  for name in "${displays[@]}"; do
    if [[ -n ${!name-} ]]; then export "${name?}"; else unset "$name"; fi
  done
  dbus-update-activation-environment --all || fail "the session bus does not answer:" "$place/bus.log"
}
