# shellcheck shell=bash
# Sourced by the sessions of Wayland compositors: what they have in common.
# shellcheck disable=SC2034,SC2154 # script/desktop reads or sets them
needs=(Xwayland dbus-update-activation-environment)

# prepare_wayland [DESKTOP]: sets the environment of the compositor and starts the session bus. Makes $place/announce, a
# program for the compositor to run when it is up.
prepare_wayland() {
  export XDG_SESSION_TYPE=wayland LIBGL_ALWAYS_SOFTWARE=1
  if (($# > 0)); then export XDG_CURRENT_DESKTOP=$1; fi
  start_bus session bus
  export DBUS_SESSION_BUS_ADDRESS=$bus_address
  cat >"$place/announce" <<'END'
#!/bin/sh
printf '%s\n' "${WAYLAND_DISPLAY-}" "${DISPLAY-}" "${SWAYSOCK-}" >&5
END
  chmod +x "$place/announce"
}

# run_compositor COMMAND [ARGUMENT]...: starts a compositor that runs $place/announce when it is up, and waits for that.
run_compositor() {
  local output name
  exec {output}< <(become "$@" 5>&1 >"$place/compositor.log" 2>&1)
  parts+=("$!")
  for name in WAYLAND_DISPLAY DISPLAY SWAYSOCK; do
    read -r -t "$patience" -u "$output" "${name?}" || fail "$session did not start:" "$place/compositor.log"
  done
  exec {output}<&-
  announce_displays
}

# Makes the displays known to the command and to the programs that the bus starts.
announce_displays() {
  local name
  for name in WAYLAND_DISPLAY DISPLAY SWAYSOCK XAUTHORITY; do
    if [[ -n ${!name-} ]]; then export "${name?}"; else unset "$name"; fi
  done
  dbus-update-activation-environment --all
}
