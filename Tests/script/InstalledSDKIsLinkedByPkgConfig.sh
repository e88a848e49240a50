# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"
source "$(dirname "${BASH_SOURCE[0]}")/sdk.bash"

install_to "$scratch/sdk" --component sdk
mv "$scratch/sdk" "$scratch/moved"
make_project "$scratch/project"
export PKG_CONFIG_PATH=$scratch/moved/lib/pkgconfig

expect "$(pkg-config --modversion deskloom-sdk)" "$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$build/CMakeCache.txt")"
read -ra options <<<"$(compiler_options)"
read -ra package <<<"$(pkg-config --cflags --libs deskloom-sdk)"
mkdir "$scratch/bundle"
g++ -std=c++23 "${options[@]}" -o "$scratch/bundle/greeter" "$scratch/project/main.cpp" "${package[@]}"
printf '[Bundle]\nIdentifier=com.example.Greeter\nVersion=7\n' >"$scratch/bundle/Info.ini"
expect "$("$scratch/bundle/greeter" --version)" 7
