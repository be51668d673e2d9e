#!/usr/bin/env python3
"""Runs test programs that were built for Windows under Wine. Takes the folder of the build, that of
the toolkit, and the names of programs; without any it runs all, and holds the serial ports to their
promises. Ends with 0 where all is as it should be.

What left_out_tests.txt names is not run with the others, and is tried by itself afterwards: what
passes, or is not there any more, is said and counts as a failure.
"""

import argparse
import collections
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
LONGEST = 300  # seconds, of a whole program
LONGEST_LEFT_OUT = 60
# Of a folder's fonts the toolkit takes any; these are what it finds on a Linux desktop.
FONTS = [f"/usr/share/fonts/truetype/dejavu/DejaVuSans{style}.ttf" for style in ("", "-Bold")]

Program = collections.namedtuple("Program", "name path environment")
LeftOut = collections.namedtuple("LeftOut", "kind name pattern")


def read_left_out():
    """The lines "folder|program|source NAME: why" and "test PROGRAM PATTERN: why"."""
    found = []
    for number, line in enumerate((HERE / "left_out_tests.txt").read_text().splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        words, _, why = line.partition(": ")
        kind, *names = words.split()
        if kind not in ("folder", "program", "source", "test") or not why:
            sys.exit(f"left_out_tests.txt, line {number}: {line}")
        if len(names) != (2 if kind == "test" else 1):
            sys.exit(f"left_out_tests.txt, line {number}: {line}")
        found.append(LeftOut(kind, names[0], names[-1]))
    return found


def read_programs(build):
    found = []
    for line in (build / "test_programs").read_text().splitlines():
        name, path, environment = line.split("\t")
        settings = dict(setting.split("=", 1) for setting in environment.split())
        found.append(Program(name, path, settings))
    return found


def declared():
    """The folders, programs and sources for other systems alone, as CMake is told of them: of each
    folder its programs and the sources of that kind."""
    found = {}
    for path in sorted((ROOT / "tests").rglob("CMakeLists.txt")):
        text = re.sub(r"#.*", "", path.read_text())
        folder = path.parent.relative_to(ROOT / "tests")
        programs = set(re.findall(r"add_test\((?:NAME )?(\w+)\s", text)) - {"name", "NAME"}
        sources = set()
        for part in re.findall(r"ONLY_UNIX\s+((?:[\w/.]+\.cpp\s+)+)", text):
            # Of a pair the other half is built.
            sources |= {str(folder / source) for source in part.split()
                        if not source.endswith("_unix.cpp")}
        found[str(folder)] = (programs, sources)
    return found


class Wine:
    """A Windows of its own, whose server ends with the tests."""

    def __init__(self, toolkit, fonts):
        cache = pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache")
        compiler = subprocess.run(
            ["x86_64-w64-mingw32-g++-posix", "-print-libgcc-file-name"], check=True, text=True,
            capture_output=True).stdout.strip()
        threads = subprocess.run(
            ["x86_64-w64-mingw32-g++-posix", "-print-file-name=libwinpthread-1.dll"], check=True,
            text=True, capture_output=True).stdout.strip()
        folders = [f"{toolkit}/bin", os.path.dirname(compiler),
                   os.path.dirname(os.path.realpath(threads))]
        self.environment = {
            name: value for name, value in os.environ.items()
            if not name.startswith(("QT_", "LC_", "LANG", "XDG_")) or name == "XDG_RUNTIME_DIR"}
        self.environment |= {
            "WINEPREFIX": str(cache / "brivon/windows/wine_tests"), "WINEDEBUG": "-all",
            "WINEPATH": ";".join("Z:" + folder.replace("/", "\\") for folder in folders),
            "QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8", "TZ": "UTC",
            "QT_QPA_FONTDIR": "Z:" + str(fonts).replace("/", "\\")}
        self.environment.pop("DISPLAY", None)

    def __enter__(self):
        self.server("-k")
        # Started by a test it would keep the test's own lines open.
        self.process = subprocess.Popen(["wineserver", "-f", "-p"], env=self.environment,
                                        stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        try:
            subprocess.run(["wineboot", "-i"], env=self.environment, check=True,
                           stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                           stderr=subprocess.DEVNULL)
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        self.server("-k")
        self.process.wait(60)

    def server(self, order):
        pathlib.Path(self.environment["WINEPREFIX"]).mkdir(parents=True, exist_ok=True)
        subprocess.run(["wineserver", order], env=self.environment, check=False,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def run(self, program, longest, *options):
        """What the program says, and how it ends; None where it does not."""
        command = ["wine", program.path, "--gtest_color=no", *options]
        # Wine hands these on by another name alone.
        environment = {"WINE" + name if name.startswith("QT_") else name: value
                       for name, value in (self.environment | program.environment).items()}
        # A file, since whoever a hung program has started would hold a pipe open.
        with tempfile.TemporaryFile() as output:
            process = subprocess.Popen(
                command, env=environment, stdin=subprocess.DEVNULL,
                cwd=os.path.dirname(program.path), stdout=output, stderr=subprocess.STDOUT,
                start_new_session=True)
            try:
                status = process.wait(longest)
            except subprocess.TimeoutExpired:
                os.killpg(process.pid, signal.SIGKILL)
                process.wait()
                status = None
            output.seek(0)
            return output.read().decode(errors="replace").replace("\r\n", "\n"), status


def tests_of(said, result):
    return re.findall(rf"^\[ *{result} *\] (\w\S*?)(?:,| \(|$)", said, re.MULTILINE)


def run_program(wine, program, patterns, logs):
    begin = time.monotonic()
    options = ["--gtest_filter=-" + ":".join(patterns)] if patterns else []
    said, status = wine.run(program, LONGEST, *options)
    (logs / f"{program.name}.txt").write_text(said)
    took = f"{time.monotonic() - begin:.0f} s"
    passed = tests_of(said, "OK")
    failed = sorted(set(tests_of(said, "FAILED")))
    skipped = sorted(set(tests_of(said, "SKIPPED")))
    more = f", {len(skipped)} skipped" if skipped else ""
    if status == 0 and passed and not failed:
        print(f"passed  {program.name}: {len(passed)} tests{more}, {took}", flush=True)
        return len(passed), True
    begun = tests_of(said, "RUN")
    how = "hung" if status is None else f"ended with {status}"
    if begun and begun[-1] not in passed + failed + skipped:
        how += f" in {begun[-1]}"
    print(f"FAILED  {program.name}: {len(passed)} passed, {len(failed)} failed{more}, {how}, {took}",
          flush=True)
    for test in failed:
        print(f"          {test}", flush=True)
    return len(passed), False


def try_left_out(wine, program, pattern):
    """Whether every test that the pattern names is there and is not done there."""
    listed, _ = wine.run(program, LONGEST_LEFT_OUT, f"--gtest_filter={pattern}",
                         "--gtest_list_tests")
    if not re.search(r"^  \w", listed, re.MULTILINE):
        print(f"FAILED  left_out_tests.txt: {program.name} has no {pattern}", flush=True)
        return False
    said, _ = wine.run(program, LONGEST_LEFT_OUT, f"--gtest_filter={pattern}")
    passed = tests_of(said, "OK")
    # A whole program whose tests leave themselves out has nothing that could pass.
    skipped = sorted(set(tests_of(said, "SKIPPED"))) if pattern != "*" else []
    for test in passed:
        print(f"FAILED  left_out_tests.txt: {program.name}: {test} passes", flush=True)
    for test in skipped:
        print(f"FAILED  left_out_tests.txt: {program.name}: {test} leaves itself out", flush=True)
    if not passed and not skipped and not tests_of(said, "RUN"):
        print(f"FAILED  left_out_tests.txt: {program.name} does not come to {pattern}", flush=True)
        return False
    return not passed and not skipped


def check_not_built(left_out, programs):
    built = {program.name for program in programs}
    folders = {entry.name for entry in left_out if entry.kind == "folder"}
    left_folders = set()
    left_programs = set()
    left_sources = set()
    for folder, (known, sources) in declared().items():
        if folder in folders and not known & built:
            left_folders.add(folder)
        else:
            left_programs |= known - built
            left_sources |= sources
    good = True
    for kind, found in (("folder", left_folders), ("program", left_programs),
                        ("source", left_sources)):
        named = {entry.name for entry in left_out if entry.kind == kind}
        for name in sorted(found - named):
            print(f"FAILED  left_out_tests.txt: the {kind} {name} is not built and not named")
            good = False
        for name in sorted(named - found):
            print(f"FAILED  left_out_tests.txt: the {kind} {name} is built or not there")
            good = False
    return good


def run_ports():
    done = subprocess.run([ROOT / "tools/windows_ports.py"], stdin=subprocess.DEVNULL, text=True,
                          capture_output=True)
    if done.returncode == 0:
        print("passed  windows_ports.py", flush=True)
        return True
    print("FAILED  windows_ports.py\n" + done.stdout + done.stderr, flush=True)
    return False


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("toolkit")
    parser.add_argument("names", nargs="*")
    arguments = parser.parse_args()
    left_out = read_left_out()
    programs = read_programs(arguments.build)
    unknown = set(arguments.names) - {program.name for program in programs}
    if unknown:
        sys.exit(f"no such test programs: {' '.join(sorted(unknown))}")
    chosen = [program for program in programs
              if not arguments.names or program.name in arguments.names]
    logs = arguments.build / "wine_logs"
    shutil.rmtree(logs, ignore_errors=True)
    logs.mkdir()

    fonts = arguments.build.resolve() / "fonts"
    fonts.mkdir(exist_ok=True)
    for font in FONTS:
        shutil.copy(font, fonts)

    good = check_not_built(left_out, programs)
    failed = 0
    tests = 0
    tried = 0
    with Wine(arguments.toolkit, fonts) as wine:
        for program in chosen:
            patterns = [entry.pattern for entry in left_out
                        if entry.kind == "test" and entry.name == program.name]
            if "*" not in patterns:
                passed, all_passed = run_program(wine, program, patterns, logs)
                tests += passed
                failed += not all_passed
            for pattern in patterns:
                tried += 1
                good = try_left_out(wine, program, pattern) and good
    if not arguments.names:
        failed += not run_ports()
    print(f"{len(chosen)} programs, {tests} tests passed; {failed} programs failed; "
          f"{tried} entries left out{'' if good else ', and the list is wrong'}.")
    sys.exit(0 if good and not failed else 1)


if __name__ == "__main__":
    main()
