# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"

# The extensions that GNOME Shell enables for a user who has chosen none.
enabled() {
  GSETTINGS_BACKEND=memory GSETTINGS_SCHEMA_DIR=$schemas gsettings get org.gnome.shell enabled-extensions
}

schemas=$scratch/prefix/share/glib-2.0/schemas
mkdir -p "$schemas"
cp /usr/share/glib-2.0/schemas/org.gnome.shell.gschema.xml "$schemas"
install_to "$scratch/prefix" --component gnome-shell
expect "$(enabled)" "['gleanery@quillary.com']"

# A distribution's own choice takes precedence.
printf "[org.gnome.shell]\nenabled-extensions=['own@example.com']\n" >"$schemas/00_org.gnome.shell.gschema.override"
install_to "$scratch/prefix" --component gnome-shell
expect "$(enabled)" "['own@example.com']"

# Without the Shell's own schema there is nothing to compile.
install_to "$scratch/other" --component gnome-shell
expect "$(find "$scratch/other" -name gschemas.compiled)" ''

# The Shell looks for an extension in the folder named after it.
extension=$(echo "$scratch"/prefix/share/gnome-shell/extensions/*)
expect "$(sed -n 's/ *"uuid": "\(.*\)",/\1/p' "$extension/metadata.json")" "$(basename "$extension")"
