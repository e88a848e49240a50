# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
source "$(dirname "${BASH_SOURCE[0]}")/installation.bash"

build_type=$(sed -n 's/^CMAKE_BUILD_TYPE:STRING=//p' "$build/CMakeCache.txt")
is_sanitized() { grep --quiet '^CMAKE_CXX_FLAGS:STRING=.*-fsanitize' "$build/CMakeCache.txt"; }

# Expects a line in what readelf tells of a file: FILE OPTION PATTERN COMPLAINT
expect_line() {
  readelf --wide "$2" "$1" | grep --extended-regexp -- "$3" >/dev/null || fail "$1 $4"
}

# The functions and data that a file exports, but for templates of the C++ library, which programs share with it.
exports() {
  readelf --wide --dyn-syms "$1" |
    awk -v types="$2" '$4 ~ types && $5 ~ /GLOBAL|WEAK/ && $6 == "DEFAULT" && $7 != "UND" { sub(/@.*/, "", $8); print $8 }' |
    grep --extended-regexp --invert-match '^_Z[A-Z]*(S[tabsiod]|9__gnu_cxx)' || true
}

check() {
  expect_line "$1" --file-header '^ *Type: +DYN ' "is always loaded to the same address"
  expect_line "$1" --program-headers '^ *GNU_RELRO ' "leaves its tables writable"
  expect_line "$1" --dynamic '\(BIND_NOW\)|\(FLAGS\).* BIND_NOW' "binds its symbols late"
  expect_line "$1" --program-headers '^ *GNU_STACK .* RW +0x' "has an executable stack"
  expect_line "$1" --dyn-syms ' UND __stack_chk_fail(@| |$)' "does not guard its stack"
  if [[ $1 == *.so ]]; then
    expect "$1 exports: $(exports "$1" 'FUNC|OBJECT')" "$1 exports: deskloomOpenWindowToolkit"
  else
    # The data that a program exports is its copy of a library's.
    expect "$1 exports: $(exports "$1" FUNC)" "$1 exports: "
    # The module calls no function of which the C library has a checked form.
    if [[ $build_type != Debug ]] && ! is_sanitized; then
      expect_line "$1" --dyn-syms ' UND __[a-z_]+_chk(@| |$)' "calls none of the C library's checked functions"
    fi
  fi
}

is_elf() {
  [[ $(head --bytes=4 "$1" | od --address-radix=n --format=x1) == ' 7f 45 4c 46' ]]
}

# What the build links, except for what is never installed.
linked() {
  ninja -C "$build" -t targets all | sed -nE 's/^([^:]*): C(XX)?_(EXECUTABLE|(MODULE|SHARED)_LIBRARY)_LINKER__.*/\1/p' |
    grep --extended-regexp --invert-match '^(tests|fuzzers|benchmarks)/|\.cmake$'
}

# A library that is linked in may be hardened where our own code isn't, so every source has its options.
options=(-fstack-protector-strong -D_GLIBCXX_ASSERTIONS -fPI -fvisibility=hidden)
if [[ $build_type != Debug ]] && ! is_sanitized; then options+=(-D_FORTIFY_SOURCE=); fi
grep '"command": ' "$build/compile_commands.json" >"$scratch/commands"
for option in "${options[@]}"; do
  if grep --quiet --invert-match --fixed-strings -- " $option" "$scratch/commands"; then fail "compiled without $option"; fi
done

mapfile -t programs < <(linked)
((${#programs[@]} > 0)) || fail "nothing is linked in $build"
for program in "${programs[@]}"; do
  is_elf "$build/$program" || fail "not an ELF file: $build/$program"
  check "$build/$program"
done

install_to "$scratch/prefix"
install_to "$scratch/prefix" --component development
installed=0
while IFS= read -r -d '' file; do
  if is_elf "$file"; then
    check "$file"
    installed=$((installed + 1))
  fi
done < <(find "$scratch/prefix" -type f -print0)
# The package has the module too.
((installed >= ${#programs[@]})) || fail "only $installed ELF files are installed"
