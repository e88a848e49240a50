# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

mkdir -p "$scratch/script" "$scratch/Gleanery/Part" "$scratch/translations"
cp "$1/script/setup" "$1/script/translations" "$scratch/script"
catalogue=$scratch/translations/xx.po
cat >"$scratch/Gleanery/First.cpp" <<'END'
const auto first = strings.localized("Version %@ of \"it\"", "Of the application");
const auto second = strings.localized("A sentence "
                                      "in two parts",
                                      "A comment");
END
echo 'auto again = localized("Version %@ of \"it\"", "Somewhere else");' >"$scratch/Gleanery/Part/Second.h"
{
  printf 'msgid ""\nmsgstr ""\n'
  for field in 'Project-Id-Version: it' 'PO-Revision-Date: 2026-01-01 00:00+0000' 'Last-Translator: somebody' \
    'Language-Team: some' 'Language: xx' 'MIME-Version: 1.0' 'Content-Type: text/plain; charset=UTF-8' \
    'Content-Transfer-Encoding: 8bit'; do
    printf '"%s\\n"\n' "$field"
  done
} >"$scratch/header"

expect_wrong() {
  { cat "$scratch/header" && printf '%s\n' "${@:2}"; } >"$catalogue"
  cp "$catalogue" "$scratch/before"
  if "$scratch/script/translations" --check 2>"$scratch/err"; then fail "not found: $1"; fi
  grep --quiet --fixed-strings "translations/xx.po: $1" "$scratch/err" ||
    grep --quiet --extended-regexp "^translations/xx.po:[0-9]+: $1" "$scratch/err" ||
    fail "expected: $1, but it said: $(cat "$scratch/err")"
  cmp "$scratch/before" "$catalogue"
}

first=('msgid "Version %@ of \"it\""' 'msgstr "%@"')
second=('msgid "A sentence in two parts"' 'msgstr "X"')
expect_wrong 'untranslated: A sentence in two parts' "${first[@]}"
expect_wrong 'untranslated: A sentence in two parts' "${first[@]}" "${second[0]}" 'msgstr ""'
expect_wrong 'untranslated: Version %@' "${second[@]}"
expect_wrong 'fuzzy: A sentence in two parts' "${first[@]}" '#, fuzzy' "${second[@]}"
expect_wrong 'obsolete: Gone' "${first[@]}" "${second[@]}" 'msgid "Gone"' 'msgstr "X"'
expect_wrong 'obsolete: Gone' "${first[@]}" "${second[@]}" '#~ msgid "Gone"' '#~ msgstr "X"'
expect_wrong 'number of format specifications' '#, objc-format' "${first[0]}" 'msgstr "X"' "${second[@]}"

# The texts of the sources are added with their comments, and the other texts are accepted.
{ cat "$scratch/header" && printf '%s\n' "${second[@]}"; } >"$catalogue"
"$scratch/script/translations"
expect "$(sed -n '/^#\. Of/,/^$/p' "$catalogue")" $'#. Of the application\n#. Somewhere else
#, objc-format\nmsgid "Version %@ of \\"it\\""\nmsgstr ""'
sed -i '/^msgid "Version/{n; s/""/"%@"/}' "$catalogue"
"$scratch/script/translations" --check
