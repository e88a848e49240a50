# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"

install_to "$scratch/sdk" --component sdk
cd "$scratch/sdk/include/deskloom"

mapfile -t headers < <(find . -name '*.h' -printf '%P\n' | LC_ALL=C sort)
((${#headers[@]} > 30)) || fail "too few headers: ${headers[*]}"
read -ra json <<<"$(pkg-config --cflags nlohmann_json)"
compile=(g++ -std=c++23 -fsyntax-only -Werror -I . "${json[@]}" -x c++)

# All compile with only the SDK's folder and nlohmann's.
printf '#include <%s>\n' "${headers[@]}" | "${compile[@]}" - || fail 'the headers do not compile'

# Each compiles as the first include of a source. Headers with a source of their own are tested so by the build.
for header in "${headers[@]}"; do
  [[ -e $1/${header%.h}.cpp ]] || printf '%s\0' "$header"
done | xargs -0 -I HEADER -P "$(nproc)" "${compile[@]}" -include HEADER /dev/null || fail 'a header does not compile alone'

# None includes a library or layer that the platform is made with.
libraries='<(glib|gio|gobject|gtk|gdk|xcb|X11|uriparser|curl|dlfcn)'
layers='"(Linux|DesktopSupport|ScriptableApps|AppleScript|UpdateCheck)/'
if grep --recursive --extended-regexp "#include ($libraries|$layers)" .; then
  fail 'these headers include libraries or layers of the platform'
fi
