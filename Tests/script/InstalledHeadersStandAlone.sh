# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"

install_to "$scratch/sdk" --component sdk
cd "$scratch/sdk/include/deskloom"

mapfile -t headers < <(find . -name '*.h' -printf '%P\n' | LC_ALL=C sort)
((${#headers[@]} > 30)) || fail "that cannot be all: ${headers[*]}"
read -ra json <<<"$(pkg-config --cflags nlohmann_json)"
compile=(g++ -std=c++23 -fsyntax-only -Werror -I . "${json[@]}" -x c++)

# With the SDK's folder and nlohmann's, all compile.
printf '#include <%s>\n' "${headers[@]}" | "${compile[@]}" - || fail 'those do not compile'

# Each does as the first that a source includes. A class with a source of its own shows that when it is built.
for header in "${headers[@]}"; do
  [[ -e $1/${header%.h}.cpp ]] || printf '%s\0' "$header"
done | xargs -0 -I HEADER -P "$(nproc)" "${compile[@]}" -include HEADER /dev/null || fail 'those do not stand alone'

# Nothing of what the platform is made with.
libraries='<(glib|gio|gobject|gtk|gdk|xcb|X11|uriparser|curl|dlfcn)'
layers='"(Linux|DesktopSupport|ScriptableApps|AppleScript|UpdateCheck)/'
if grep --recursive --extended-regexp "#include ($libraries|$layers)" .; then
  fail 'those include the platform'
fi
