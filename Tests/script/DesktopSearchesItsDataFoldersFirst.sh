# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

mkdir -p "$scratch/a b/dbus-1/services" "$scratch/c"
cat >"$scratch/a b/dbus-1/services/com.quillary.Test.service" <<END
[D-BUS Service]
Name=com.quillary.Test
Exec=/bin/sh -c 'echo started >>$scratch/started; exit 1'
END
cd "$scratch"
# shellcheck disable=SC2016 # expanded on the desktop
expect "$("$desktop" --data-dir 'a b' --data-dir c bash -c 'echo $XDG_DATA_DIRS')" \
  "$scratch/a b:$scratch/c:/usr/local/share:/usr/share"

# The bus starts the service, which ends without taking its name.
"$desktop" --data-dir 'a b' gdbus call --session --dest com.quillary.Test --object-path / --method a.b.C 2>/dev/null &&
  fail "a service that ended has answered"
[[ -s started ]] || fail "the service was not started"
