# shellcheck shell=bash
# Sourced by the tests of the installation, after common.bash.

# shellcheck disable=SC2034 # for the tests
bundle=lib/deskloom/plugins/com.quillary.Gleanery
build=$(dirname "$2")

# Installs the build to a prefix, with further options of cmake.
install_to() {
  # shellcheck disable=SC2154 # it is in common.bash
  cmake --install "$build" --prefix "$@" >"$scratch/install.log"
}

# The files and links below a folder.
files_in() {
  (cd "$1" && find . -not -type d -printf '%P\n' | LC_ALL=C sort)
}
