# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"

# The packages of this build, without compressing them.
cmake -E chdir "$build" cpack -B "$scratch/packages" -D CPACK_DEBIAN_COMPRESSION_TYPE=none >"$scratch/cpack.log" 2>&1 ||
  fail "$(cat "$scratch/cpack.log")"
mapfile -t packages < <(find "$scratch/packages" -maxdepth 1 -name '*.deb' | LC_ALL=C sort)
expect "$(printf '%s\n' "${packages[@]##*/}" | cut --delimiter=_ --fields=1 | LC_ALL=C sort)" 'deskloom-host
deskloom-sdk-dev
gleanery
gleanery-browser
gleanery-gnome-shell'

# A system without anything but dpkg's own files.
root=$scratch/root
mkdir -p "$root/var/lib/dpkg/info" "$root/var/lib/dpkg/updates"
touch "$root/var/lib/dpkg/status"
of_system() { (cd "$root" && find . -path ./var -prune -o -print | LC_ALL=C sort); }
run_dpkg() {
  dpkg --root="$root" --force-not-root --force-depends --force-script-chrootless --log=/dev/null "$@" >"$scratch/dpkg.log" 2>&1 ||
    fail "$(cat "$scratch/dpkg.log")"
}
before=$(of_system)

# No two packages have a file in common, or dpkg would refuse the second one.
run_dpkg --install "${packages[@]}"
for program in gleanery applescript deskloom-host; do
  [[ -x $root/usr/bin/$program ]] || fail "$program is not installed"
  [[ -f $root/usr/share/man/man1/$program.1.gz ]] || fail "$program has no manual page"
  man --warnings --local-file "$root/usr/share/man/man1/$program.1.gz" 2>&1 >/dev/null | { ! grep .; } ||
    fail "the manual page of $program is malformed"
done
for file in etc/chromium/native-messaging-hosts/com.quillary.gleanery.tabs.json usr/lib/deskloom/gleanery-tabs \
  usr/share/chromium/extensions/gleanery/manifest.json usr/share/applications/com.quillary.{Gleanery,Deskloom}.desktop \
  usr/share/gnome-shell/extensions/gleanery@quillary.com/extension.js usr/lib/cmake/DeskloomSDK/DeskloomSDKConfig.cmake; do
  [[ -f $root/$file ]] || fail "$file is not installed"
done
if grep --recursive --files-with-matches --fixed-strings "$scratch" "$root/usr" "$root/etc"; then fail "these files name the staging folder"; fi
grep --quiet '^Exec="/usr/bin/gleanery"' "$root/usr/share/applications/com.quillary.Gleanery.desktop" || fail "the entry names another program"
# PACKAGE: the packages that it depends on, one in a line.
dependencies() { dpkg-query --admindir="$root/var/lib/dpkg" --showformat='${Depends}' --show "$1" | sed 's/, */\n/g' | cut --delimiter=' ' --fields=1; }
for package in gleanery gleanery-browser deskloom-host; do
  dependencies "$package" | grep --quiet '^libglib2\.0-0' || fail "$package does not depend on the libraries that it needs"
done
# The libraries that are loaded by name.
for library in $(strings "$root"/usr/lib/deskloom/plugins/*/gleanery | grep --only-matching '^lib[-A-Za-z0-9]*\.so\.[0-9]$'); do
  owner=$(dpkg --search "*/$(dpkg-architecture --query DEB_HOST_MULTIARCH)/$library" | head -n 1 | cut --delimiter=: --fields=1)
  dependencies gleanery | grep --quiet --line-regexp --fixed-strings "$owner" || fail "gleanery does not depend on $owner"
done

run_dpkg --purge gleanery gleanery-browser gleanery-gnome-shell deskloom-sdk-dev deskloom-host
expect "$(of_system)" "$before"
