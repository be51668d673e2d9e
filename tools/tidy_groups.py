#!/usr/bin/env python3
"""Reads sources with clang-tidy, several of them at once.

Most of the time goes into what the sources include, so the sources of one library are read as one.
Two that cannot stand side by side (each has an unnamed constant of the same name, say) are put into
different groups. Called by tidy.sh with the build's folder and the sources.
"""

import concurrent.futures
import json
import os
import re
import shlex
import subprocess
import sys
import tempfile

MOST_AT_ONCE = 10


def commands_of(build):
    """The arguments that compile each source, without the source and without what is written."""
    commands = {}
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        for entry in json.load(file):
            words = shlex.split(entry["command"])
            output = words[words.index("-o") + 1]
            kept = []
            skipped = False
            for word in words:
                if skipped:
                    skipped = False
                elif word in ("-o", "-c", "-MF", "-MT"):
                    skipped = True
                elif word != "-MD":
                    kept.append(word)
            # A launcher in front of the compiler is none of the compiler's arguments.
            while "clang" not in os.path.basename(kept[0]):
                kept.pop(0)
            library = re.match(r".*\.dir(?=/)", output).group()
            commands.setdefault(os.path.realpath(entry["file"]), (library, entry["directory"], kept))
    return commands


def text_of(group):
    """The sources behind each other, and for each line of that the source and its line there."""
    text = []
    places = []
    for source in group:
        with open(source, encoding="utf-8") as file:
            lines = file.read().split("\n")
        text += lines
        places += [(source, number) for number in range(1, len(lines) + 1)]
    return "\n".join(text), places


def sources_in_error(group, command, directory):
    """Those of the group that the compiler does not take behind the others."""
    text, places = text_of(group)
    result = subprocess.run(
        [*command, "-x", "c++", "-fsyntax-only", "-w", "-ferror-limit=0", "-"],
        input=text, cwd=directory, capture_output=True, text=True, check=False)
    if result.returncode == 0:
        return []
    lines = re.findall(r"^<stdin>:(\d+):\d+: (?:fatal )?error:", result.stderr, re.M)
    named = {places[int(line) - 1][0] for line in lines}
    return [source for source in group[1:] if source in named] or group[1:]


def groups_of(sources, command, directory):
    groups = []
    left = sources
    while left:
        group = left[:MOST_AT_ONCE]
        rest = left[MOST_AT_ONCE:]
        while len(group) > 1:
            moved = sources_in_error(group, command, directory)
            if not moved:
                break
            group = [source for source in group if source not in moved]
            rest = moved + rest
        groups.append(group)
        left = rest
    return groups


def read(group, command, directory, folder, config):
    with tempfile.TemporaryDirectory(dir=folder) as own:
        path = os.path.join(own, "group.cpp")
        text, places = text_of(group)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        with open(os.path.join(own, "compile_commands.json"), "w", encoding="utf-8") as file:
            json.dump([{"directory": directory, "file": path,
                        "arguments": [*command, "-c", path]}], file)
        result = subprocess.run(
            ["clang-tidy", "-p", own, f"--config-file={config}", "--quiet",
             # Two sources of a group include the same.
             "--checks=-readability-duplicate-include", path],
            capture_output=True, text=True, check=False)

    def place(match):
        source, line = places[int(match.group(1)) - 1]
        return f"{source}:{line}:"

    # A finding begins with a place and goes on to the next one.
    output = re.sub(re.escape(path) + r":(\d+):", place, result.stdout)
    findings = re.split(r"^(?=/[^:\n]+:\d+:\d+: (?:error|warning):)", output, flags=re.M)
    findings = [finding for finding in findings if finding.strip()]
    if result.returncode != 0 and not findings:
        findings = [result.stderr]
    return findings + [finding for source in group for finding in included_twice(source)]


def included_twice(source):
    with open(source, encoding="utf-8") as file:
        includes = re.findall(r"^#include .*$", file.read(), re.M)
    return [f"{source}: twice {include}" for include in sorted(set(includes))
            if includes.count(include) > 1]


def is_of_windows(source):
    """Whether it is the half of a pair that only Windows compiles."""
    other = re.sub(r"_windows\.cpp$", "_unix.cpp", source)
    return other != source and os.path.exists(other)


def main():
    build = os.path.abspath(sys.argv[1])
    commands = commands_of(build)
    libraries = {}
    for source in sorted(os.path.realpath(path) for path in sys.argv[2:]):
        if source not in commands and is_of_windows(source):
            continue
        if source not in commands:
            sys.exit(f"{source} is not compiled by the build in {build}")
        libraries.setdefault(commands[source][0], []).append(source)

    found = set()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        asked = {}
        for library, sources in libraries.items():
            _, directory, command = commands[sources[0]]
            asked[library] = pool.submit(groups_of, sources, command, directory)
        groups = []
        for library, answer in asked.items():
            _, directory, command = commands[libraries[library][0]]
            groups += [(group, command, directory) for group in answer.result()]
        # The longest first, so that none is left alone at the end.
        groups.sort(key=lambda group: len(group[0]), reverse=True)
        config = os.path.abspath(".clang-tidy")
        readings = [pool.submit(read, *group, build, config) for group in groups]
        for reading in concurrent.futures.as_completed(readings):
            for finding in reading.result():
                if finding not in found:
                    print(finding, flush=True)
                    found.add(finding)
    print(f"{sum(len(group[0]) for group in groups)} sources read in {len(groups)} groups, "
          f"{len(found)} findings")
    sys.exit(1 if found else 0)


main()
