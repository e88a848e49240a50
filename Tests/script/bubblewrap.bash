# shellcheck shell=bash
# Sourced by the tests that need bwrap, after common.bash and with the test's arguments. Starts the test again if bwrap
# needs another root.

# bwrap needs a root that is a mount point, which that of a plain chroot is not. A bind mount of the root is one. It is made
# below a private mount, so that no other process sees it.
if ((EUID == 0)) && ! mountpoint --quiet /; then
  root=$(mktemp --directory)
  status=0
  # shellcheck disable=SC2016 # the inner shell expands it
  unshare --mount --propagation unchanged sh -euc '
    mount -t tmpfs none "$1"
    mount --make-private "$1"
    mkdir "$1/root"
    mount --rbind / "$1/root"
    mount --make-rprivate "$1/root"
    cd "$1/root"
    shift
    exec chroot . bash "$@"' sh "$root" "$(realpath "$0")" "$@" || status=$?
  if mountpoint --quiet "$root"; then umount "$root"; fi
  rmdir "$root"
  exit "$status"
fi
bwrap --ro-bind / / true || fail "bwrap does not work here: it needs root or user namespaces"
