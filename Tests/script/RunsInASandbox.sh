# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"
source "$(dirname "${BASH_SOURCE[0]}")/bubblewrap.bash"

# The document's command with another program in the sandbox.
document_script() {
  # shellcheck disable=SC2016 # a code fence, not a command
  sed -n '/^```sh$/,/^```$/p' "$tree/docs/sandbox.md" | sed -e '1d;$d' -e "s|/usr/local/bin/gleanery|$1|" >"$scratch/$2"
  grep --quiet "^exec bwrap " "$scratch/$2" || fail "docs/sandbox.md has no line that runs bwrap"
  grep --quiet --fixed-strings -- "-- $1 " "$scratch/$2" || fail "docs/sandbox.md does not run the plug-in"
  chmod +x "$scratch/$2"
}
tree=$1
# shellcheck disable=SC2016 # the document's shell expands it
document_script '"$HOME/.local/bin/gleanery"' plugin
document_script /bin/sh shell

cat >"$scratch/launch" <<'END_OF_LAUNCH'
scratch=$1 build=$2
for component in plugin development; do
  cmake --install "$build" --prefix "$HOME/.local" --component "$component" >/dev/null
done
cd "$HOME/.local/share"
entries=(applications/com.quillary.Gleanery.desktop dbus-1/services/com.quillary.Gleanery.service)
sed -i "s|^Exec=\"[^\"]*\"|Exec=\"$scratch/plugin\"|" "${entries[@]}"
[[ $(grep --count --fixed-strings "$scratch/plugin" "${entries[@]}") == *:1*:1 ]]
gdbus call --session --dest org.freedesktop.DBus --object-path /org/freedesktop/DBus \
  --method org.freedesktop.DBus.ReloadConfig >/dev/null

# An application to list.
mousepad --disable-server &
until xprop -root _NET_CLIENT_LIST | grep --quiet 0x; do sleep 0.05; done

# The time is reached only if something is broken.
timeout 120 "$HOME/.local/bin/deskloom-host" --exit-after 1 --decode &
host=$!
gdbus wait --session --timeout 60 com.quillary.Deskloom
gio open deskloomplugin://runCommand/apps
wait "$host"

# What is allowed in the sandbox, and what is not.
echo kept >"$HOME/document"
echo secret >"$XDG_RUNTIME_DIR/secret"
"$scratch/shell" -euc '
  [ "$(cat "$HOME/document")" = kept ]
  echo state >"$HOME/.local/state/deskloom/written"
  echo temporary >/tmp/written'
[[ $(cat "$HOME/.local/state/deskloom/written") == state ]]
[[ ! -e /tmp/written ]]
refused() {
  if "$scratch/shell" -c "$1" 2>/dev/null; then
    echo "allowed in the sandbox: $1" >&2
    exit 1
  fi
}
refused 'echo >"$HOME/document"'
refused 'echo >"$HOME/new"'
refused 'echo >/usr/new'
refused 'echo >/etc/new'
refused 'cat "$XDG_RUNTIME_DIR/secret"'
refused "cat /proc/$$/root/etc/passwd"
[[ $(cat "$HOME/document") == kept ]]
END_OF_LAUNCH

received=$("$desktop" bash -euo pipefail "$scratch/launch" "$scratch" "$build")
[[ $received == *Mousepad* ]] || fail "the host received: $received"
