# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

# shellcheck disable=SC2016 # expanded on the desktop
"$desktop" bash -euc '
  xprop -root _NET_SUPPORTING_WM_CHECK | grep --quiet "window id"
  xprop -root _NET_CLIENT_LIST | grep --quiet "window id"
  gdbus call --session --dest org.freedesktop.DBus --object-path / --method org.freedesktop.DBus.GetId >/dev/null
  for folder in "$HOME" "$XDG_CONFIG_HOME" "$XDG_DATA_HOME" "$XDG_CACHE_HOME" "$XDG_STATE_HOME" "$XDG_RUNTIME_DIR"; do
    [[ -d $folder && -O $folder ]]
  done
  [[ $(stat --format=%a "$XDG_RUNTIME_DIR") == 700 ]]
  [[ -z $(ls "$HOME") ]]'
