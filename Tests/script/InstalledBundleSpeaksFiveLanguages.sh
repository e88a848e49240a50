# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"

install_to "$scratch/prefix" --component plugin
text='This plugin must be run by Deskloom app.'

# LANGUAGE has an effect in every locale except C.
for language in de es fr ja zh_CN; do
  translation=$(LANGUAGE=$language LANG=C.UTF-8 TEXTDOMAINDIR=$scratch/prefix/$bundle/locale \
    gettext --domain=com.quillary.Gleanery "$text")
  [[ $translation != "$text" ]] || fail "not translated: $language"
  echo "$translation" >>"$scratch/translations"
done
expect "$(sort --unique "$scratch/translations" | wc --lines)" 5
