# shellcheck shell=bash
# Sourced by script/desktop: KWin, the compositor of KDE Plasma.
# shellcheck source=script/sessions/wayland.bash
source "$(dirname "${BASH_SOURCE[0]}")/wayland.bash"
needs+=(kwin_wayland kbuildsycoca5)

# Where a container allows no capabilities, a program that has one in its file cannot be executed; its copy has none.
start_session() {
  export XDG_CURRENT_DESKTOP=KDE
  prepare_wayland
  cp "$(command -v kwin_wayland)" "$place/kwin_wayland"
  kbuildsycoca5 >"$place/kbuildsycoca5.log" 2>&1 || fail "the list of applications was not made:" "$place/kbuildsycoca5.log"
  run_compositor "$place/kwin_wayland" --virtual --width 1280 --height 800 --xwayland --no-lockscreen \
    --no-global-shortcuts --socket wayland-0 "$place/announce"
}
