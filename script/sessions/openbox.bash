# shellcheck shell=bash
# Sourced by script/desktop: an X server without a screen and the window manager openbox.
# shellcheck disable=SC2034,SC2154 # script/desktop reads or sets them
needs=(Xvfb openbox xprop)

start_session() {
  start_x_server
  start_bus session bus
  export DBUS_SESSION_BUS_ADDRESS=$bus_address
  start_window_manager
}

start_x_server() {
  local number output
  exec {output}< <(become Xvfb -displayfd 5 -screen 0 1280x800x24 -nolisten tcp -noreset 5>&1 >"$place/Xvfb.log" 2>&1)
  parts+=("$!")
  read -r -t "$patience" -u "$output" number || fail "the X server did not start:" "$place/Xvfb.log"
  exec {output}<&-
  export DISPLAY=:$number
}

# xprop first prints the X server's own properties and then the window manager's as they are made. The list of windows is
# the last of them.
start_window_manager() {
  local line='' deadline=$((SECONDS + patience)) spy output
  exec {output}< <(become xprop -root -spy 2>&1)
  spy=$!
  read -r -t "$patience" -u "$output" line || fail "the X server does not answer"
  become openbox --sm-disable >"$place/openbox.log" 2>&1 &
  parts+=("$!")
  until [[ $line == '_NET_CLIENT_LIST('* ]]; do
    read -r -t "$((deadline - SECONDS))" -u "$output" line || fail "the window manager did not start:" "$place/openbox.log"
  done
  kill "$spy"
  exec {output}<&-
  await_window_manager "$deadline"
}

# openbox does not handle an event that it reads while it starts until the next one arrives. So this sets a list of desktop
# names that is too short until openbox completes it, which it does from its main loop.
await_window_manager() {
  until [[ $(xprop -root _NET_DESKTOP_NAMES) == *'"first", '* ]]; do
    ((SECONDS < $1)) || fail "the window manager does not answer:" "$place/openbox.log"
    xprop -root -f _NET_DESKTOP_NAMES 8u -set _NET_DESKTOP_NAMES first
    sleep 0.01
  done
}
