# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

mkfifo "$scratch/up"
for session in "${sessions[@]}"; do
  for signal in HUP:129 INT:130 TERM:143; do
    # A shell without a terminal has its background commands ignore interrupts.
    # shellcheck disable=SC2016 # expanded on the desktop
    env --default-signal=INT "$desktop" --session "$session" bash -c 'echo "$$ $HOME" >"$0"; exec sleep 4711' \
      "$scratch/up" &
    read -r pid home <"$scratch/up"
    kill -s "${signal%:*}" $!
    actual=0
    wait $! || actual=$?
    expect "$actual" "${signal#*:}"
    if runs "$pid"; then fail "$session: the command is still running after $signal"; fi
    [[ ! -e $home ]] || fail "$session: its folder is still there after $signal"
  done
done
