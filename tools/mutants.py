#!/usr/bin/env python3
"""Breaks Brivon's rules and links one place at a time, and says which breaks no test has seen.

A mutant is the program with one comparison, constant, condition, operator or call changed. Each is
built in a copy of the tree (build/mutants) with the test programs that can see its room, the quick
ones first, which run until one fails. Those that survive are shown with their place: they want a
test, or a line in tools/equivalent_mutants.txt that says why nobody can tell them from the program.

    tools/mutants.py                    # 100 mutants chosen at random
    tools/mutants.py --start 7 --count 300
    tools/mutants.py --rooms base,row --all
    tools/mutants.py --list src/base/text.cpp
    tools/mutants.py --entries  # looks only whether each line of the list still names a mutant

The last line sums up; the status is 0 only where no mutant survived and each line of the list names
one.
"""

import argparse
import functools
import os
import random
import re
import shutil
import signal
import subprocess
import sys
import time
from collections import Counter
from pathlib import Path

from mutations import mutants_of

def root():
    """The tree, by a path that CMake and Ninja take."""
    folder = Path(__file__).resolve().parent.parent
    return Path(subprocess.run(["bash", "-c", '. tools/run_parts.sh; path_to_build_in "$PWD"'],
                               cwd=folder, stdout=subprocess.PIPE, check=True,
                               encoding="utf-8").stdout.rstrip("\n"))


ROOT = root()
COPY = ROOT / "build" / "mutants"
BUILD = COPY / "build" / "debug"
EQUIVALENT = ROOT / "tools" / "equivalent_mutants.txt"

# The test programs that can see a room, those first that fail soonest.
PROGRAMS = {
    "base": "base_rules store_rules page_rules schedule_rules language_rules panel_line_rules "
            "scrolling_rules command_rules config_rules row_rules widgets page_views schedule_views",
    "store": "store_rules config_rules page_rules command_rules config_views sending_views "
             "brivonctl_rules",
    "language": "language_rules schedule_rules page_rules app_views schedule_views",
    "panel_line": "panel_line_rules command_rules page_rules scrolling_rules schedule_rules "
                  "brivonctl_transmitter real_links sending_views",
    "row": "row_rules page_rules scrolling_rules page_views scrolling_views",
    "widgets": "widgets app_views page_views schedule_views",
    "config": "config_rules store_rules config_views app_views",
    "page": "page_rules read_back schedule_rules brivonctl_rules page_views schedule_views "
            "sending_views",
    "schedule": "schedule_rules read_back brivonctl_rules schedule_views sending_views",
    "scrolling": "scrolling_rules read_back brivonctl_rules scrolling_views sending_views",
    "command": "command_rules brivonctl_rules command_views sending_views",
    "sending": "page_rules schedule_rules command_rules brivonctl_rules sending_views page_views "
               "schedule_views",
}

WINDOWS = {"widgets", "page_views", "schedule_views", "scrolling_views", "config_views",
           "command_views", "sending_views", "app_views", "real_links", "brivonctl_transmitter"}

# Tables, which change with what they say: a test of each entry would be the table once more.
TABLES = {"code_page_tables.h", "caption_tables.cpp", "further_captions.cpp", "further_texts.cpp"}

ENVIRONMENT = {"QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8", "LANG": "C.UTF-8",
               "LANGUAGE": "", "TZ": "UTC"}
SHORTEST_TIME_OUT = 60  # seconds


@functools.lru_cache(maxsize=None)
def text_of(path):
    """A source as it was when it was first looked at, whatever becomes of it during the run."""
    return (ROOT / path).read_text(encoding="utf-8")


def sources_of(room):
    """The rules and links of a room, with their headers."""
    kind, names = "", []
    for word in (ROOT / "src" / room / "CMakeLists.txt").read_text().replace(")", " ").split():
        if word.isupper():
            kind = word
        elif kind in ("RULES", "LINKS"):
            names += [word] if word.endswith(".h") else [word, word[:-4] + ".h"]
    folder = Path("src") / room
    return [folder / name for name in names
            if name not in TABLES and (ROOT / folder / name).exists()]


def equivalent_mutants():
    """The names in the list; the lines below each, which say why, are indented."""
    lines = EQUIVALENT.read_text(encoding="utf-8").split("\n") if EQUIVALENT.exists() else []
    return {line for line in lines if line and not line.startswith((" ", "#"))}


def mutants_of_rooms(rooms):
    return [m for room in rooms for path in sources_of(room)
            for m in mutants_of(path, text_of(path))]


def entries_without_mutant():
    """How many lines of the list name no mutant any more; they are shown."""
    idle = sorted(equivalent_mutants() - {m.name for m in mutants_of_rooms(PROGRAMS)})
    for name in idle:
        print("%s names no mutant:\n    %s" % (EQUIVALENT.name, name), flush=True)
    return len(idle)


def run(command, **options):
    return subprocess.run(command, cwd=COPY, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          check=False, **options)


def copy_tree():
    """Brings the copy to the state of the tree; a file that is the same keeps its time."""
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                            cwd=ROOT, stdout=subprocess.PIPE, check=True).stdout
    for name in listed.decode().split("\0"):
        source, target = ROOT / name, COPY / name
        if not name or not source.is_file():
            continue
        content = source.read_bytes()
        if target.exists() and target.read_bytes() == content:
            continue
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_bytes(content)
        target.chmod(source.stat().st_mode)


def target_of(program):
    return program + "_test"


def path_of(program):
    return next(BUILD.glob("tests/*/" + target_of(program)))


def compile_copy(programs):
    return run(["cmake", "--build", str(BUILD), "-j2", "--target"] +
               [target_of(p) for p in programs])


def run_tests(program, time_out):
    """"passed", "failed" or "time-out"."""
    environment = dict(os.environ, **ENVIRONMENT)
    memory = Path("/dev/shm")
    if memory.is_dir() and os.access(memory, os.W_OK):
        environment["TMPDIR"] = str(memory)  # a save that waits for a disk shows nothing more
    with subprocess.Popen([str(path_of(program)), "--gtest_brief=1", "--gtest_fail_fast"],
                          cwd=BUILD, env=environment, stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL, start_new_session=True) as process:
        try:
            return "passed" if process.wait(time_out) == 0 else "failed"
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            return "time-out"


def programs_for(room, quick):
    programs = PROGRAMS[room].split()
    # Where only windows see a room, the one that fails soonest is quick.
    return [p for p in programs if not (quick and p in WINDOWS)] or programs[:1]


def try_mutant(mutant, programs, time_outs):
    """What became of a mutant that stands in the copy, and the program that saw it."""
    for number, program in enumerate(programs):
        if compile_copy([program]).returncode != 0:
            # What compiled for the first program can only fail for another by the system's fault.
            return ("not compiling", "") if number == 0 else ("killed", program)
        result = run_tests(program, time_outs[program])
        if result != "passed":
            return ("killed" if result == "failed" else "time-out"), program
    return "survived", ""


def prepare(programs, definitions):
    """Builds the copy, runs its tests and returns how long each program may take."""
    subprocess.run([str(ROOT / "tools" / "install_missing.sh"), "--tests", "lld"], check=True)
    copy_tree()
    options = ["-DBRIVON_PRECOMPILED_HEADERS=ON", "-DBRIVON_BENCHMARKS=OFF",
               "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -g1"]
    if shutil.which("ld.lld"):
        options.append("-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld")
    configured = run(["cmake", "--preset", "debug"] + options + ["-D" + d for d in definitions])
    built = compile_copy(programs) if configured.returncode == 0 else configured
    if built.returncode != 0:
        sys.exit("The tree itself does not build:\n" + built.stdout.decode(errors="replace")[-4000:])
    time_outs = {}
    for program in programs:
        began = time.monotonic()
        if run_tests(program, 1800) != "passed":
            sys.exit("%s fails without a change" % target_of(program))
        took = time.monotonic() - began
        print("%s takes %.1f s" % (target_of(program), took), flush=True)
        time_outs[program] = max(SHORTEST_TIME_OUT, 10 * took)
    return time_outs


def try_all(chosen, quick, time_outs):
    """Tries the mutants, file by file, and returns how each one ended."""
    results = []
    try:
        for number, mutant in enumerate(chosen, 1):
            original = text_of(mutant.path)
            lines = original.split("\n")
            line = lines[mutant.line]
            lines[mutant.line] = line[:mutant.begin] + mutant.new + line[mutant.end:]
            (COPY / mutant.path).write_text("\n".join(lines), encoding="utf-8")
            began = time.monotonic()
            result, program = try_mutant(mutant, programs_for(mutant.room(), quick), time_outs)
            results.append((mutant, result))
            print("%d/%d %s %s (%.0f s)\n    %s" % (number, len(chosen), result, program,
                                                  time.monotonic() - began, mutant.name), flush=True)
            if number == len(chosen) or chosen[number].path != mutant.path:
                (COPY / mutant.path).write_text(original, encoding="utf-8")
    except KeyboardInterrupt:
        print("broken off")
    finally:
        copy_tree()  # whatever happened, the copy is the tree again
    return results


def report(results, everyone, left_out):
    kinds = ["killed", "time-out", "not compiling", "survived"]
    print("\n| room | mutants | %s |\n%s|" % (" | ".join(kinds), "|---" * (2 + len(kinds))))
    for room in PROGRAMS:
        own = Counter(result for mutant, result in results if mutant.room() == room)
        if own:
            print("| `%s` | %d of %d | %s |" % (room, sum(own.values()),
                                               sum(mutant.room() == room for mutant in everyone),
                                               " | ".join(str(own[kind]) for kind in kinds)))
    survivors = [mutant for mutant, result in results if result == "survived"]
    if survivors:
        print("\nNo test has seen these:")
    for mutant in survivors:
        print("%s\n    line %d" % (mutant.name, mutant.line + 1))
    count = Counter(result for _, result in results)
    print("%d mutants: %s; %d left out as equivalent" % (
        len(results), ", ".join("%d %s" % (count[kind], kind) for kind in kinds), left_out))
    return len(survivors)


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--start", type=int, default=1, help="start number of the random choice")
    parser.add_argument("--count", type=int, default=100, help="how many are chosen")
    parser.add_argument("--all", action="store_true", help="every one")
    parser.add_argument("--rooms", default=",".join(PROGRAMS), help="of these rooms only")
    parser.add_argument("--like", metavar="REGEX", default="",
                        help="only those whose name holds this pattern")
    parser.add_argument("--quick", action="store_true", help="without the windows' tests")
    parser.add_argument("--list", metavar="FILE", help="name a file's mutants and end")
    parser.add_argument("--entries", action="store_true",
                        help="look whether each line of the list names a mutant, and end")
    parser.add_argument("--define", action="append", default=[], metavar="NAME=VALUE",
                        help="handed to CMake")
    options = parser.parse_args()
    if options.list:
        for mutant in mutants_of(Path(options.list), text_of(Path(options.list))):
            print(mutant.name)
        return 0
    idle = entries_without_mutant()
    if options.entries:
        return 1 if idle else 0

    # Broken off by either signal it reports what it has, also where a shell has it ignore one.
    for ended_by in (signal.SIGINT, signal.SIGTERM):
        signal.signal(ended_by, signal.default_int_handler)
    rooms = options.rooms.split(",")
    unknown = [room for room in rooms if room not in PROGRAMS]
    if unknown:
        parser.error("no such room: " + ", ".join(unknown))
    everyone = [m for m in mutants_of_rooms(rooms) if re.search(options.like, m.name)]
    equivalent = equivalent_mutants()
    tried = [m for m in everyone if m.name not in equivalent]
    if not options.all and len(tried) > options.count:
        tried = random.Random(options.start).sample(tried, options.count)
    # File by file, so that each is compiled as it is only once; the files in any order, so that
    # what is broken off has tried some of every room.
    files = sorted({m.path for m in tried})
    random.Random(options.start).shuffle(files)
    tried.sort(key=lambda m: (files.index(m.path), m.line, m.begin))
    print("%d of %d mutants, start %d" % (len(tried), len(everyone), options.start), flush=True)
    programs = sorted({p for m in tried for p in programs_for(m.room(), options.quick)})
    COPY.mkdir(parents=True, exist_ok=True)
    results = try_all(tried, options.quick, prepare(programs, options.define))
    survivors = report(results, everyone, len([m for m in everyone if m.name in equivalent]))
    return 1 if survivors or idle else 0


if __name__ == "__main__":
    sys.exit(main())
