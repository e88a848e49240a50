# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

mkdir -p "$scratch/sdk/lib/cmake/DeskloomSDK" "$scratch/here" "$scratch/none"
touch "$scratch/sdk/lib/cmake/DeskloomSDK/DeskloomSDKConfig.cmake"
cd "$scratch/here"

expect_failure() {
  local expected=$1 sentence=$2 actual=0
  shift 2
  "$new_plugin" "$@" >"$scratch/out" 2>"$scratch/err" || actual=$?
  expect "$actual" "$expected"
  grep --quiet --fixed-strings -- "$sentence" "$scratch/err" || fail "$*: expected: $sentence, but it said: $(cat "$scratch/err")"
  expect "$(ls -A)" ''
}

new_plugin=$1/script/new-plugin
sdk=(--sdk "$scratch/sdk")
expect_failure 2 Usage
expect_failure 2 Usage "Recent Files"
expect_failure 2 Usage --wrong "Recent Files" com.example.RecentFiles
expect_failure 2 Usage "${sdk[@]}" "Recent Files" com.example.RecentFiles folder more

for name in '' ' ' 'Recent  Files' ' Recent' 'Recent ' '7 Files' 'Récent' 'a/b' 'a;b' 'a"b' $'a\nb'; do
  expect_failure 1 'a name is words of letters and digits' "${sdk[@]}" "$name" com.example.RecentFiles
done
expect_failure 1 'CMake has a target with this name' "${sdk[@]}" Test com.example.Test

for identifier in '' RecentFiles com. .com com..RecentFiles com.7files com.-files 'com.recent files' com.récent /com/recent; do
  expect_failure 1 'an identifier is a name on the bus' "${sdk[@]}" "Recent Files" "$identifier"
done
expect_failure 1 'at most 255 characters' "${sdk[@]}" "Recent Files" "com.$(printf 'x%.0s' {1..252})"

expect_failure 1 'it exists already' "${sdk[@]}" "Recent Files" com.example.RecentFiles "$scratch/none"
ln -s nowhere "$scratch/link"
expect_failure 1 'it exists already' "${sdk[@]}" "Recent Files" com.example.RecentFiles "$scratch/link"
expect_failure 1 'no such folder' "${sdk[@]}" "Recent Files" com.example.RecentFiles missing/folder
expect_failure 1 'no DeskloomSDK is installed in' --sdk "$scratch/none" "Recent Files" com.example.RecentFiles
expect_failure 1 '--sdk needs a folder' --sdk

# A correct call makes the project, by default in a folder with the program's name.
"$new_plugin" "${sdk[@]}" "my RSS feeds 2" com.example.my-feeds_2 >/dev/null
expect "$(ls -A)" my-rss-feeds-2
expect "$(ls my-rss-feeds-2/MyRSSFeeds2Delegate.*)" $'my-rss-feeds-2/MyRSSFeeds2Delegate.cpp\nmy-rss-feeds-2/MyRSSFeeds2Delegate.h'
if grep --recursive '@[A-Z]*@' my-rss-feeds-2; then fail "these are not filled in"; fi
