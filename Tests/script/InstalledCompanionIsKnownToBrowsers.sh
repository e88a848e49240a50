# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"
host=native-messaging-hosts/com.quillary.gleanery.tabs.json
stage=$scratch/stage

# Browsers read the system's configuration in /etc, also for what a package has installed to /usr.
DESTDIR=$stage install_to /usr --component browser
for file in "etc/chromium/$host" "usr/lib/mozilla/$host"; do
  grep --quiet --fixed-strings '"path": "/usr/lib/deskloom/gleanery-tabs"' "$stage/$file" || fail "$file names another program"
  python3 -m json.tool "$stage/$file" >/dev/null || fail "$file is no JSON"
done
[[ -x $stage/usr/lib/deskloom/gleanery-tabs ]] || fail "gleanery-tabs is no program"

# A path with special characters is written so that browsers read the same.
DESTDIR=$stage install_to '/a "b" c' --component browser
path=$(python3 -c 'import json, sys; print(json.load(open(sys.argv[1]))["path"])' "$stage/a \"b\" c/lib/mozilla/$host")
expect "$path" '/a "b" c/lib/deskloom/gleanery-tabs'

# The id of Chromium's extension is made of its key: 32 digits of a hash, written in the letters from a on.
id=$(python3 - "$stage/usr/share/chromium/extensions/gleanery/manifest.json" <<'END'
import base64, hashlib, json, sys
key = base64.b64decode(json.load(open(sys.argv[1]))["key"])
print("".join(chr(ord("a") + int(digit, 16)) for digit in hashlib.sha256(key).hexdigest()[:32]))
END
)
grep --quiet --fixed-strings "\"allowed_origins\": [\"chrome-extension://$id/\"]" "$stage/etc/chromium/$host" ||
  fail "the program is not for the extension $id"

# Firefox's archive has the extension, for the id that the program allows.
archive=$(find "$stage/usr/share/mozilla" -name '*.xpi')
expect "$(basename "$archive" .xpi)" gleanery@quillary.com
manifest=$(cmake -E chdir "$scratch" cmake -E tar xf "$archive" && cat "$scratch/manifest.json")
[[ $manifest == *'"id": "gleanery@quillary.com"'* ]] || fail "the archive has another id"
for script in windows.js companion.js; do
  cmp "$scratch/$script" "$stage/usr/share/chromium/extensions/gleanery/$script" || fail "the families have different scripts"
done

# No more than is needed.
for file in "$stage/usr/share/chromium/extensions/gleanery/manifest.json" "$scratch/manifest.json"; do
  expect "$(python3 -c 'import json, sys; m = json.load(open(sys.argv[1])); print(m["permissions"], m["incognito"])' "$file")" \
    "['tabs', 'nativeMessaging'] not_allowed"
  if grep --quiet --extended-regexp 'host_permissions|content_scripts|externally_connectable|web_accessible' "$file"; then
    fail "$file asks for more"
  fi
done
