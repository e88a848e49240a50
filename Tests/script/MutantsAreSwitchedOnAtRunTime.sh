# shellcheck shell=bash source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/common.bash"

# Each bug that can be planted before main changes the output. Compile-time constants get none.
cat >"$scratch/program.cpp" <<'END_OF_PROGRAM'
#include <cstdio>
#include <optional>

namespace {

constexpr int limit = 3;
constexpr bool isLimited(int number) { return number > limit; }

bool isInside(int number, int first, int last) {
  return first <= number && number < last;
}

std::optional<int> sum(int left, int right) {
  if (left == right)
    return std::nullopt;
  return left + right;
}

int clamped(int number, int least) {
  if (number < least)
    number = least;
  else
    number *= number;
  return number;
}

}  // namespace

int main() {
  for (int number : {2, 3, 4, 5})
    std::printf("%d", isInside(number, 3, 5));
  std::printf(" %d %d %d", sum(4, 4).value_or(1), sum(3, 4).value_or(1), isLimited(4));
  std::printf(" %d %d %d", clamped(2, 3), clamped(3, 3), clamped(4, 3));
}
END_OF_PROGRAM

cat >"$scratch/plant.py" <<'END_OF_SCRIPT'
import sys
sys.dont_write_bytecode = True
sys.path.insert(0, sys.argv[1])
import sites
path = sys.argv[2]
arguments = ["-std=c++23", "-include", sys.argv[1] + "/Planted.h"]
text = open(path, "rb").read()
main = text[:text.index(b"int main")].count(b"\n") + 1
found = dict(enumerate(site for site in sites.find(path, "program.cpp", arguments) if site.line < main))
planted = sites.compiling(path, arguments, text, found)
open(sys.argv[3], "wb").write(sites.plant(text, planted))
for number, site in planted.items():
  print(number, site.line, site.change)
END_OF_SCRIPT
/usr/bin/python3 "$scratch/plant.py" "$1/Mutants" "$scratch/program.cpp" "$scratch/planted.cpp" >"$scratch/planted"

expect "$(cut --delimiter=' ' --fields=2- "$scratch/planted" | LC_ALL=C sort --key=1n --key=2)" "10 && to ||
10 < reversed
10 < to <=
10 <= reversed
10 <= to <
10 returns the opposite
14 == to !=
16 + to -
16 returns an empty value
20 < reversed
20 < to <=
21 statement removed
23 statement removed
24 returns an empty value"

g++ -std=c++23 -include "$1/Mutants/Planted.h" "$scratch/planted.cpp" -o "$scratch/program"
g++ -std=c++23 "$scratch/program.cpp" -o "$scratch/original"
as_written=$("$scratch/original")
expect "$(PLANTED_REACHED=$scratch/reached "$scratch/program")" "$as_written"
expect "$(sort --numeric-sort "$scratch/reached")" "$(cut --delimiter=' ' --fields=1 "$scratch/planted")"
while read -r number line change; do
  [[ $(PLANTED_MUTANT=$number "$scratch/program") != "$as_written" ]] || fail "no difference: line $line, $change"
done <"$scratch/planted"
