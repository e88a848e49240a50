# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"

# A folder whose name needs quoting, and no preferred handlers.
prefix="$scratch/a \"b\" \$c %d"
install_to "$prefix" --component plugin
install_to "$scratch/development" --component development

cat >"$scratch/command" <<'END'
gdbus() { command gdbus "$1" --session "${@:2}" >/dev/null; }
"$1/bin/deskloom-host" --exit-after 1 &
host=$!
gdbus wait --timeout 60 com.quillary.Deskloom
case $2 in
  open) gio open deskloomplugin://runCommand/apps ;;
  call)
    gdbus call --dest com.quillary.Gleanery --object-path /com/quillary/Gleanery \
      --method org.freedesktop.Application.Open '["deskloomplugin://runCommand/apps"]' '{}'
    ;;
esac
wait "$host"
END

for way in call open; do
  received=$("$desktop" --data-dir "$prefix/share" --data-dir "$scratch/development/share" \
    bash -euo pipefail "$scratch/command" "$scratch/development" "$way")
  [[ $received == deskloom://gleanery/* ]] || fail "$way: $received"
done

# If the host does not run, the bus starts it, with the log that its environment names.
mkfifo "$scratch/log"
exec 3<>"$scratch/log"
# shellcheck disable=SC2016 # expanded on the desktop
DESKLOOM_HOST_LOG=$scratch/log "$desktop" --data-dir "$prefix/share" --data-dir "$scratch/development/share" \
  bash -euc 'gio open deskloomplugin://runCommand/apps; read -r line <&3; [[ $line == deskloom://gleanery/* ]]'
