# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

# The session's name, what programs find in XDG_CURRENT_DESKTOP, and a command that only this compositor answers.
check() {
  # shellcheck disable=SC2016 # expanded on the desktop
  "$desktop" --session "$1" bash -euc '
    ((EUID != 0))
    [[ ${XDG_CURRENT_DESKTOP-} == "$0" && $XDG_SESSION_TYPE == wayland ]]
    [[ -S $XDG_RUNTIME_DIR/$WAYLAND_DISPLAY ]]
    xprop -root _NET_SUPPORTING_WM_CHECK | grep --quiet "window id"
    "$@" >/dev/null
    [[ -d $HOME && -O $HOME && $(stat --format=%a "$XDG_RUNTIME_DIR") == 700 ]]
    # Programs that the bus starts find the displays too.
    printf "[D-BUS Service]\nName=com.quillary.Test\nExec=/bin/sh -c \"env >%s/env; exit 1\"\n" "$HOME" \
      >"$XDG_RUNTIME_DIR/dbus-1/services/com.quillary.Test.service"
    gdbus call --session --dest org.freedesktop.DBus --object-path / --method org.freedesktop.DBus.ReloadConfig >/dev/null
    gdbus call --session --dest com.quillary.Test --object-path / --method a.b.C 2>/dev/null || true
    grep --quiet --line-regexp "DISPLAY=$DISPLAY" "$HOME/env"
    grep --quiet --line-regexp "WAYLAND_DISPLAY=$WAYLAND_DISPLAY" "$HOME/env"' "${@:2}" ||
    fail "$1 is not up"
}

check sway sway swaymsg -t get_version
check kwin KDE gdbus call --session --dest org.kde.KWin --object-path /KWin --method org.kde.KWin.currentDesktop
check gnome GNOME gdbus call --session --dest org.gnome.Shell --object-path /org/gnome/Shell \
  --method org.gnome.Shell.Extensions.ListExtensions
check mutter '' gdbus call --session --dest org.gnome.Mutter.DisplayConfig --object-path /org/gnome/Mutter/DisplayConfig \
  --method org.gnome.Mutter.DisplayConfig.GetCurrentState
check weston '' true
