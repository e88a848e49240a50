# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"
source "$(dirname "${BASH_SOURCE[0]}")/sdk.bash"

# The installed package can be moved, to a folder whose name needs quoting.
install_to "$scratch/sdk" --component sdk
install_to "$scratch/sdk" --component host
mv "$scratch/sdk" "$scratch/a sdk"
make_project "$scratch/project"
{
  configure "$scratch/project" "$scratch/build" -DCMAKE_PREFIX_PATH="$scratch/a sdk" &&
    cmake --build "$scratch/build" &&
    cmake --install "$scratch/build" --prefix "$scratch/greeter"
} >"$scratch/said" || fail "$(cat "$scratch/said")"

bundle=lib/deskloom/plugins/com.example.Greeter
languages() { printf "$bundle/locale/%s/LC_MESSAGES/com.example.Greeter.mo\n" de es fr ja zh_CN; }
expect "$(files_in "$scratch/greeter")" "bin/greeter
$bundle/Info.ini
$bundle/deskloom-windows.so
$bundle/greeter
$bundle/icon.svg
$(languages)
$bundle/update-check
share/applications/com.example.Greeter.desktop
share/applications/mimeinfo.cache
share/dbus-1/services/com.example.Greeter.service
share/icons/hicolor/scalable/apps/com.example.Greeter.svg"
expect "$(desktop-file-validate "$scratch/greeter/share/applications/com.example.Greeter.desktop")" ''
expect "$("$scratch/greeter/bin/greeter" --version)" 1.2
grep --quiet --line-regexp 'FeedURL=https://example.com/appcast.xml' "$scratch/greeter/$bundle/Info.ini" || fail 'no feed'
# shellcheck disable=SC1003 # a backslash, escaped
grep --quiet --line-regexp 'Name=Greeter \\\\ Co; Ltd' "$scratch/greeter/$bundle/Info.ini" || fail 'another name'

# Its update check works in the installed bundle wherever that is moved to.
cp -r "$scratch/greeter/$bundle" "$scratch/a moved bundle"
sed -i "s|^FeedURL=.*|FeedURL=file://$scratch/appcast.xml|" "$scratch/a moved bundle/Info.ini"
expect "$(XDG_STATE_HOME=$scratch/state "$scratch/a moved bundle/update-check" 2>&1)" \
  'could not check for an update of Greeter \ Co; Ltd: the feed cannot be loaded: No such file or directory'

# It speaks German in its own words, and in the runtime's if it has none.
german() {
  LANGUAGE=de LANG=C.UTF-8 TEXTDOMAINDIR=$scratch/greeter/$bundle/locale gettext --domain=com.example.Greeter "$1"
}
expect "$(german OK)" 'Na gut'
[[ $(german 'Plugin cannot be installed.') == 'Das Plugin '* ]] || fail "$(german 'Plugin cannot be installed.')"

# The session's bus starts it from the build folder, and from the installation.
install_to "$scratch/development" --component development
cat >"$scratch/command" <<'END'
"$1/bin/deskloom-host" --exit-after 1 &
host=$!
gdbus wait --session --timeout 60 com.quillary.Deskloom
gdbus call --session --dest com.example.Greeter --object-path /com/example/Greeter \
  --method org.freedesktop.Application.Open '["deskloomplugin://runCommand/hello"]' '{}' >/dev/null
wait "$host"
END
for place in build greeter; do
  received=$("$desktop" --data-dir "$scratch/$place/share" --data-dir "$scratch/development/share" \
    bash -euo pipefail "$scratch/command" "$scratch/a sdk")
  [[ $received == deskloom://*Hello* ]] || fail "$place: $received"
done
