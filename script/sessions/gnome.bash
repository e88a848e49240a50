# shellcheck shell=bash
# Sourced by script/desktop: GNOME Shell.
# shellcheck disable=SC2034,SC2154 # script/desktop and wayland.bash read or set them
# shellcheck source=script/sessions/wayland.bash
source "$(dirname "${BASH_SOURCE[0]}")/wayland.bash"
needs+=(gnome-shell gdbus)

start_session() {
  export XDG_CURRENT_DESKTOP=GNOME GSETTINGS_BACKEND=keyfile
  write_settings
  prepare_wayland
  start_bus system system_bus
  export DBUS_SYSTEM_BUS_ADDRESS=$bus_address
  run_shell
  leave_overview
}

# Without the welcome tour, which covers the windows, and without animations.
write_settings() {
  local list
  list=$(printf "'%s', " "${extensions[@]}")
  mkdir -p "$XDG_CONFIG_HOME/glib-2.0/settings"
  {
    printf '[org/gnome/shell]\nwelcome-dialog-last-shown-version="999"\n'
    if ((${#extensions[@]} > 0)); then echo "enabled-extensions=[${list%, }]"; fi
    printf '[org/gnome/desktop/interface]\nenable-animations=false\n'
    printf '[org/gnome/desktop/background]\npicture-options="none"\n'
  } >"$XDG_CONFIG_HOME/glib-2.0/settings/keyfile"
}

# GNOME Shell starts no program when it is up. Its log says so, and names the X display.
run_shell() {
  local log=$place/compositor.log spy output
  : >"$log"
  become gnome-shell --headless --wayland --virtual-monitor 1280x800 >"$log" 2>&1 &
  parts+=("$!")
  exec {output}< <(become tail --lines=+1 --follow --pid="$!" "$log" 2>&1)
  spy=$!
  read_log <&"$output" || fail "GNOME Shell did not start:" "$log"
  kill "$spy"
  exec {output}<&-
  XAUTHORITY=$(echo "$XDG_RUNTIME_DIR"/.mutter-Xwaylandauth.*)
  publish_displays
}

read_log() {
  local line
  while read -r -t "$patience" line; do
    case $line in
      *'public X11 display :'*) line=${line#*'display '} && DISPLAY=${line%%,*} ;;
      *'Wayland display name '*) line=${line#*\'} && WAYLAND_DISPLAY=${line%\'*} ;;
      *'GNOME Shell started at '*) return 0 ;;
      *'Failed to init X11 display'*) return 1 ;;
    esac
  done
  return 1
}

# GNOME Shell starts with the overview, in which no window has the focus.
leave_overview() {
  gdbus call --session --dest org.gnome.Shell --object-path /org/gnome/Shell \
    --method org.freedesktop.DBus.Properties.Set org.gnome.Shell OverviewActive '<false>' >/dev/null ||
    fail "GNOME Shell does not answer:" "$place/compositor.log"
}
