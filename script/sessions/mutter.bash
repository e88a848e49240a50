# shellcheck shell=bash
# Sourced by script/desktop: mutter, the compositor of GNOME Shell, by itself.
# shellcheck source=script/sessions/wayland.bash
source "$(dirname "${BASH_SOURCE[0]}")/wayland.bash"
needs+=(mutter)

# mutter ends when the command ends that it has started.
start_session() {
  prepare_wayland
  run_compositor mutter --headless --wayland --virtual-monitor 1280x800 -- \
    sh -c "'$place/announce' && exec sleep infinity"
}
