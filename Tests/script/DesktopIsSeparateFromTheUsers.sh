# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

export DISPLAY=:4711 WAYLAND_DISPLAY=wayland-4711 DBUS_SESSION_BUS_ADDRESS=unix:path=/4711 SESSION_MANAGER=4711
export XDG_CURRENT_DESKTOP=4711 XDG_CONFIG_DIRS=/4711 XDG_RUNTIME_DIR=/4711 HOME=/4711 LC_ALL=tlh_4711 GTK_MODULES=4711
export SWAYSOCK=/4711 DBUS_SYSTEM_BUS_ADDRESS=unix:path=/4711 XAUTHORITY=/4711 XDG_SESSION_TYPE=4711
for session in "${sessions[@]}"; do
  if "$desktop" --session "$session" env | grep 4711; then fail "$session: these variables were passed on"; fi
done
