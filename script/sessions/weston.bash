# shellcheck shell=bash
# Sourced by script/desktop: weston, a compositor that tells no one about its windows.
# shellcheck source=script/sessions/wayland.bash
source "$(dirname "${BASH_SOURCE[0]}")/wayland.bash"
needs+=(weston)

start_session() {
  prepare_wayland
  cat >"$place/weston.ini" <<END
[core]
backend=headless-backend.so
use-pixman=true
xwayland=true
idle-time=0

[autolaunch]
path=$place/announce
END
  run_compositor weston --config="$place/weston.ini" --width=1280 --height=800
}
