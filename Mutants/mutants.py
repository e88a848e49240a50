"""Plants bugs in a copy of the tree, runs the tests that reach each bug, and prints the bugs that no test noticed.

See script/mutants --help. All bugs are compiled in together and switched on by the environment (Planted.h), so the tree is
built once. A first run of each test, with no bug switched on, records which bugs it reaches.
"""

import argparse
import collections
import concurrent.futures
import fnmatch
import functools
import hashlib
import json
import os
import pathlib
import pickle
import re
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import time

sys.dont_write_bytecode = True
import sites  # noqa: E402

TOP = pathlib.Path(__file__).resolve().parent.parent
PLACE = TOP / "build" / "mutants"
TREE = PLACE / "tree"
BUILD = PLACE / "build"
HEADER = TOP / "Mutants" / "Planted.h"

# Launches and settings, browsers' sessions, and the language. Bugs are taken from these areas in turn, so half of them are in
# the first.
DELIVERY = ["Platform/*.cpp", "Linux/*.cpp", "DeskloomSDK/*.cpp", "Gleanery/*.cpp"]
AREAS = [DELIVERY, ["BrowserSessions/*.cpp"], DELIVERY, ["AppleScript/*.cpp"]]
# What shows windows has tests that take long, and the fakes are themselves for tests.
EXCLUDED_SOURCES = ["Linux/GTK/*", "Platform/Fake/*", "Linux/Windows*"]

# Tests that are left out: those with real browsers, file managers or many windows take minutes, those of scripts build and
# install, and those with the thread sanitizer compile their sources once more.
EXCLUDED_TESTS = re.compile(
    r"^(script|Threads|TestSupport|Benchmarks|UpdateCheck|BrimlaceTextView|HostStandIn|DesktopSupport)/|"
    r"(Sway|KWin|GNOME|WithoutExtension|Mutter|Weston)Tests$|"
    r"^(ScriptableApps|AppleScriptTool)/.*DesktopTests$|"
    r"(Browser|Tabs|Chromium|Firefox|Web|Finder|Window|Alert|Update|Fuzz).*DesktopTests$")

# The proportion of bugs that may go unnoticed.
TOLERATED = 0.1

Test = collections.namedtuple("Test", "name command seconds reached")


def say(text):
  print(text, flush=True)


def run(command, **options):
  subprocess.run(command, check=True, **options)


# ---- The tree and its build


def copy_tree():
  """Brings the copy up to date. Unchanged files keep their time of modification."""
  listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=TOP, check=True,
                          capture_output=True).stdout.decode()
  names = {name for name in listed.split("\0") if name and (TOP / name).is_file()}
  for name in names:
    source, copy = TOP / name, TREE / name
    copy.parent.mkdir(parents=True, exist_ok=True)
    if source.suffix != ".cpp" or not copy.exists():
      write_if_changed(copy, source.read_bytes())
      shutil.copymode(source, copy)
  for copy in TREE.rglob("*"):
    if copy.is_file() and str(copy.relative_to(TREE)) not in names:
      copy.unlink()
  return names


def write_if_changed(path, text):
  if not path.exists() or path.read_bytes() != text:
    path.write_bytes(text)


def configure():
  flags = f"-w -O0 -g0 -include {HEADER}"
  run(["cmake", "-G", "Ninja", "-S", TREE, "-B", BUILD, "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=",
       f"-DCMAKE_CXX_FLAGS={flags}"], stdout=subprocess.DEVNULL)


def build(wanted):
  """Builds the tests that are run, with the programs that they need."""
  listed = subprocess.run(["ninja", "-C", BUILD, "-t", "targets", "all"], check=True, capture_output=True, text=True).stdout
  targets = re.findall(r"^(\S+): \S+_(?:EXECUTABLE|MODULE_LIBRARY)_LINKER__", listed, re.MULTILINE)
  chosen = [target for target in targets if target.startswith("tests/") and takes_part(target.removeprefix("tests/"), wanted)]
  run(["nice", "cmake", "--build", BUILD, "--parallel", str(os.cpu_count()), "--target", *chosen])


def takes_part(program, wanted):
  """Whether tests of a test program are run. It is named after its module and file, or after its module alone."""
  for module in (folder.name for folder in (TREE / "Tests").iterdir() if folder.is_dir()):
    if program == f"{module}Tests":
      return is_chosen(f"{module}/", wanted)
    if program.startswith(module) and program.endswith("DesktopTests"):
      return is_chosen(f"{module}/{program.removeprefix(module)}", wanted)
  return False


def is_chosen(test, wanted):
  return not EXCLUDED_TESTS.search(test) and wanted.search(test)


# ---- The bugs


def arguments_by_source():
  """The compiler's arguments for each source, as far as they matter for parsing it."""
  result = {}
  for entry in json.loads((BUILD / "compile_commands.json").read_text()):
    arguments = shlex.split(entry["command"])
    kept = [argument for argument in arguments if argument.startswith(("-I", "-D", "-std="))]
    kept += [f"-isystem{folder}" for option, folder in zip(arguments, arguments[1:]) if option == "-isystem"]
    result.setdefault(os.path.relpath(entry["file"], TREE), kept + ["-w", "-include", str(HEADER)])
  return result


def find_in(name, arguments):
  """The sites of a file. They are cached, as finding them takes as long as compiling."""
  key = hashlib.sha256(repr((name, arguments)).encode() + (TOP / name).read_bytes() + pathlib.Path(sites.__file__).read_bytes())
  kept = PLACE / "sites" / key.hexdigest()
  if not kept.exists():
    kept.parent.mkdir(exist_ok=True)
    kept.write_bytes(pickle.dumps(sites.find(str(TOP / name), name, arguments)))
  return pickle.loads(kept.read_bytes())


def find_sites(names, only, arguments):
  """The sites of each area."""
  def matches(name, patterns):
    return any(fnmatch.fnmatch(name, pattern) for pattern in patterns)

  wanted = {name for name in names if name in arguments and not matches(name, EXCLUDED_SOURCES) and
            matches(name, {pattern for area in AREAS for pattern in area}) and (not only or matches(name, only))}
  with concurrent.futures.ProcessPoolExecutor() as pool:
    found = dict(zip(sorted(wanted), pool.map(find_in, sorted(wanted), [arguments[name] for name in sorted(wanted)])))
  return [[site for name in sorted(found) if matches(name, area) for site in found[name]] for area in AREAS]


@functools.cache
def lines_of(name):
  return (TOP / name).read_text().splitlines()


def draw(site, seed):
  """A site's place in the order. It depends only on the seed and the site's line, so changes elsewhere don't move it."""
  return hashlib.sha256(repr((seed, site.file, site.change, lines_of(site.file)[site.line - 1].strip())).encode()).digest()


def choose(areas, seed):
  """All sites in the order that the seed gives them, from the areas in turn."""
  queues = [sorted(area, key=lambda site: draw(site, seed)) for area in areas]
  order, taken = [], set()
  while any(queues):
    for queue in queues:
      while queue:
        site = queue.pop()
        if site[:5] not in taken:
          taken.add(site[:5])
          order.append(site)
          break
  return order


def compiling_in(name, arguments, planted):
  return sites.compiling(str(TOP / name), arguments, (TOP / name).read_bytes(), planted)


def plant(names, order, count, arguments):
  """Plants `count` bugs and returns them by number. Bugs that don't compile are replaced by others."""
  planted, rest = {}, list(enumerate(order, 1))
  while rest and len(planted) < count:
    batch, rest = rest[:count - len(planted)], rest[count - len(planted):]
    planted |= batch
    by_file = sort_by_file(planted)
    changed = sorted({site.file for _, site in batch})
    with concurrent.futures.ProcessPoolExecutor() as pool:
      good = pool.map(compiling_in, changed, [arguments[name] for name in changed], [by_file[name] for name in changed])
    by_file |= dict(zip(changed, good))
    planted = {number: site for of_file in by_file.values() for number, site in of_file.items()}
  by_file = sort_by_file(planted)
  for name in names:
    if name.endswith(".cpp"):
      write_if_changed(TREE / name, sites.plant((TOP / name).read_bytes(), by_file.get(name, {})))
  return planted


def sort_by_file(planted):
  by_file = collections.defaultdict(dict)
  for number, site in planted.items():
    by_file[site.file][number] = site
  return by_file


# ---- The tests


def run_test(command, seconds, **environment):
  """Whether the command succeeds in time. Ends all processes that it started."""
  process = subprocess.Popen(command, env=os.environ | environment, cwd=BUILD, stdin=subprocess.DEVNULL,
                             stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True)
  try:
    return process.wait(seconds) == 0
  except subprocess.TimeoutExpired:
    return False
  finally:
    end(process)


def end(process):
  # A private desktop ends its own processes on SIGTERM.
  for sent, patience in ((signal.SIGTERM, 30), (signal.SIGKILL, None)):
    try:
      if process.poll() is None:
        process.send_signal(sent)
        process.wait(patience)
    except subprocess.TimeoutExpired:
      pass
  try:
    os.killpg(process.pid, signal.SIGKILL)
  except ProcessLookupError:
    pass


def observe(test):
  """Runs a test with no bug switched on and returns it with its duration and the bugs that it reaches, or None if it fails."""
  name, command = test
  with tempfile.NamedTemporaryFile() as reached:
    start = time.monotonic()
    passed = run_test(command, 1200, PLANTED_REACHED=reached.name)
    seconds = time.monotonic() - start
    numbers = {int(line) for line in reached.read().split()}
  return Test(name, command, seconds, numbers) if passed else None


def observe_all(wanted):
  listed = subprocess.run(["ctest", "--test-dir", BUILD, "--show-only=json-v1"], check=True, capture_output=True).stdout
  # The tests of a program that is not built are listed as one test without a command.
  tests = [(test["name"], test["command"]) for test in json.loads(listed)["tests"]
           if "command" in test and is_chosen(test["name"], wanted)]
  say(f"{len(tests)} tests to run")
  with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
    observed = list(pool.map(observe, tests))
  for (name, _), result in zip(tests, observed):
    if result is None:
      say(f"left out, because it fails without a bug: {name}")
  tests = [result for result in observed if result is not None and result.reached]
  apart = set()
  for _, command in commands([test for test in tests if "DesktopTests" not in test.name], apart):
    if not run_test(command, 1200):
      say(f"run one by one, because they fail together: the tests of {command[0]}")
      apart.add(command[0])
  return tests, apart


def commands(tests, apart):
  """Commands that run the tests, quickest first: tests of one program together, unless they need a desktop or it is `apart`."""
  together = collections.defaultdict(list)
  for test in tests:
    program = test.command[0]
    filters = [argument for argument in test.command[1:] if argument.startswith("--gtest_filter=")]
    are_together = filters and "DesktopTests" not in test.name and program not in apart
    together[program if are_together else test.name].append(test)
  result = []
  for program, group in together.items():
    seconds = sum(test.seconds for test in group)
    if program == group[0].name:
      command = group[0].command
    else:
      names = [argument.split("=", 1)[1] for test in group for argument in test.command if argument.startswith("--gtest_filter=")]
      command = [program, "--gtest_filter=" + ":".join(names), "--gtest_also_run_disabled_tests", "--gtest_fail_fast"]
    result.append(("DesktopTests" in group[0].name, seconds, command))
  return [(seconds, command) for _, seconds, command in sorted(result)]


def outcome(number, tests, apart):
  """The fate of a bug: "found", "survived" or "no test reaches it"."""
  reaching = [test for test in tests if number in test.reached]
  if not reaching:
    return "no test reaches it"
  for seconds, command in commands(reaching, apart):
    # A hang counts as found, so the time is generous: a test that is slow on a busy machine must not count.
    if not run_test(command, 60 + 20 * seconds, PLANTED_MUTANT=str(number)):
      return "found"
  return "survived"


# ---- The report


def describe(site):
  line = lines_of(site.file)[site.line - 1].strip()
  text = (TOP / site.file).read_bytes()[site.begin:site.end].decode()
  text = " ".join(text.split())
  return f"{site.file}:{site.line}: {site.change}: {text if len(text) < 100 else line}"


def report(planted, outcomes):
  survivors = [number for number in planted if outcomes[number] != "found"]
  for number in sorted(survivors, key=lambda number: planted[number][:3]):
    say(f"{describe(planted[number])} ({outcomes[number]})")
  say(f"{len(planted)} bugs planted, {len(planted) - len(survivors)} found, {len(survivors)} not")
  return len(survivors) <= TOLERATED * len(planted)


def main():
  parser = argparse.ArgumentParser(prog="script/mutants")
  parser.add_argument("--count", type=int, default=200)
  parser.add_argument("--seed", type=int, default=1)
  parser.add_argument("--only", action="append", default=[])
  parser.add_argument("--tests", type=re.compile, default=re.compile(""))
  options = parser.parse_args()
  if options.count < 1:
    parser.error("--count must be at least 1")

  TREE.mkdir(parents=True, exist_ok=True)
  names = copy_tree()
  configure()
  arguments = arguments_by_source()
  areas = find_sites(names, options.only, arguments)
  order = choose(areas, options.seed)
  if not order:
    sys.exit("script/mutants: no file matches, or none has a place for a bug")
  planted = plant(names, order, options.count, arguments)
  say(f"{len(order)} places for a bug, {len(planted)} of them planted")
  build(options.tests)
  tests, apart = observe_all(options.tests)
  outcomes = {}
  with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
    running = {pool.submit(outcome, number, tests, apart): number for number in planted}
    for done in concurrent.futures.as_completed(running):
      number = running[done]
      outcomes[number] = done.result()
      if outcomes[number] != "found":
        say(f"[{len(outcomes)}/{len(planted)}] {describe(planted[number])} ({outcomes[number]})")
  sys.exit(0 if report(planted, outcomes) else 1)


if __name__ == "__main__":
  main()
