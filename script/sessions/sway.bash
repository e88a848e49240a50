# shellcheck shell=bash
# Sourced by script/desktop: sway, a compositor of the wlroots family.
# shellcheck source=script/sessions/wayland.bash
source "$(dirname "${BASH_SOURCE[0]}")/wayland.bash"
needs+=(sway)

start_session() {
  export XDG_CURRENT_DESKTOP=sway
  prepare_wayland
  cat >"$place/sway.conf" <<END
output HEADLESS-1 resolution 1280x800
xwayland enable
exec "$place/announce"
END
  run_compositor env WLR_BACKENDS=headless WLR_LIBINPUT_NO_DEVICES=1 WLR_RENDERER=pixman \
    sway --config "$place/sway.conf"
}
