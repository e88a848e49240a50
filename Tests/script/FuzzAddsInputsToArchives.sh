# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

# A tree with a target that has an archive, and one that has none yet.
mkdir -p "$scratch/script" "$scratch/Fuzz/Corpus"
cp "$1/script/fuzz" "$scratch/script"
cp "$1/Fuzz/Corpus/WebSocket.tar" "$scratch/Fuzz/Corpus"
touch "$scratch/Fuzz/WebSocketFuzzer.cpp" "$scratch/Fuzz/NewFuzzer.cpp"
cd "$scratch"

# An archive's bytes depend only on the names and contents of its inputs.
mkdir inputs
tar --extract --file="$1/Fuzz/Corpus/WebSocket.tar" --directory=inputs
names=(inputs/*)
script/fuzz --add WebSocket "${names[0]}"
cmp "$1/Fuzz/Corpus/WebSocket.tar" Fuzz/Corpus/WebSocket.tar
for name in inputs/*; do (umask 077 && script/fuzz --add New "$name"); done
cmp "$1/Fuzz/Corpus/WebSocket.tar" Fuzz/Corpus/New.tar

echo "found something" >a-finding
script/fuzz --add WebSocket a-finding
expect "$(tar --extract --to-stdout --file=Fuzz/Corpus/WebSocket.tar a-finding)" "found something"
expect "$(tar --list --file=Fuzz/Corpus/WebSocket.tar | wc -l)" $((${#names[@]} + 1))

! script/fuzz --add WebSocket no-such-file 2>/dev/null || fail "a missing file is not noticed"
! script/fuzz --add Unknown a-finding 2>/dev/null || fail "an unknown target is not noticed"
