# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

make_extension() {
  local folder=$scratch/share/gnome-shell/extensions/$1
  mkdir -p "$folder"
  printf '{"uuid": "%s", "name": "A", "description": "B", "shell-version": ["%s"]}\n' "$1" "$2" >"$folder/metadata.json"
  echo 'function init() {} function enable() {} function disable() {}' >"$folder/extension.js"
}

# Whether GNOME Shell has enabled the extension: its state is then 1.
enabled() {
  local extension=$1
  shift
  "$desktop" --session gnome --data-dir "$scratch/share" "$@" gdbus call --session --dest org.gnome.Shell \
    --object-path /org/gnome/Shell --method org.gnome.Shell.Extensions.GetExtensionInfo "$extension" |
    grep --quiet "'state': <1.0>"
}

version=$(gnome-shell --version | grep --only-matching '[0-9]*' | head -n 1)
make_extension a@example.com "$version"
make_extension b@example.com "$version"
if enabled a@example.com; then fail "an extension is enabled that nobody asked for"; fi
for extension in a b; do
  enabled $extension@example.com --enable-extension a@example.com --enable-extension b@example.com ||
    fail "$extension is not enabled"
done

# The same by a schema's default, as a package makes it.
mkdir -p "$scratch/share/glib-2.0/schemas"
cp /usr/share/glib-2.0/schemas/*.xml "$scratch/share/glib-2.0/schemas"
printf "[org.gnome.shell]\nenabled-extensions=['a@example.com']\n" >"$scratch/share/glib-2.0/schemas/99_a.gschema.override"
glib-compile-schemas "$scratch/share/glib-2.0/schemas"
enabled a@example.com || fail "the schema's default does not hold"
