# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"
source "$(dirname "${BASH_SOURCE[0]}")/sdk.bash"

install_to "$scratch/sdk" --component sdk
mkdir "$scratch/project"
touch "$scratch/project/main.cpp" "$scratch/project/icon.png"

# Expects that a call with these arguments stops the configuration with this message.
expect_refusal() {
  printf '%s\n' 'cmake_minimum_required(VERSION 3.25)' 'project(Greeter LANGUAGES CXX)' 'find_package(DeskloomSDK REQUIRED)' \
    "deskloom_plugin(greeter $2)" >"$scratch/project/CMakeLists.txt"
  if configure "$scratch/project" "$scratch/build" -DCMAKE_PREFIX_PATH="$scratch/sdk" >"$scratch/said" 2>&1; then
    fail "not refused: $2"
  fi
  tr --squeeze-repeats ' \n' ' ' <"$scratch/said" | grep --quiet --fixed-strings "deskloom_plugin(greeter): $1" ||
    fail "$2: $(cat "$scratch/said")"
}

all='IDENTIFIER com.example.Greeter NAME Greeter VERSION 1 SOURCES main.cpp'
expect_refusal 'IDENTIFIER is missing' "${all/IDENTIFIER com.example.Greeter/}"
expect_refusal 'NAME is missing' "${all/NAME Greeter/NAME}"
expect_refusal 'VERSION is missing' "${all/VERSION 1/}"
expect_refusal 'SOURCES is missing' "${all/SOURCES main.cpp/}"
long=com.$(printf 'a%.0s' {1..252})
for identifier in Greeter com..Greeter .com.Greeter com.Greeter. com.1st 'com.a b' com.gruß.Greeter "$long"; do
  expect_refusal 'IDENTIFIER is not a D-Bus name' "${all/com.example.Greeter/\"$identifier\"}"
done
expect_refusal 'no such file:' "${all/main.cpp/main.cpp missing.cpp}"
expect_refusal 'no such file:' "$all ICON missing.svg"
expect_refusal 'no such file:' "$all LOCALE missing"
expect_refusal 'ICON is not an SVG file' "$all ICON icon.png"
expect_refusal 'no value after LICENSE' "$all LICENSE"
expect_refusal 'unknown arguments: LICENCE;MIT' "LICENCE MIT $all"
expect_refusal 'PUBLIC_KEY needs a FEED_URL' "$all PUBLIC_KEY a2V5"
