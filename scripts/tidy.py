"""Runs clang-tidy on those sources that have changed: tidy.py BUILD_DIR SOURCE...

Sources that BUILD_DIR does not compile are skipped. A source that was found clean is not checked
again until the compile command, the rules, the source itself or a header of the project that it
includes changes. The exit code is 1 if clang-tidy reports anything.
"""

import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

INCLUDE = re.compile(rb'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)


@functools.cache
def included(source, folders):
    """The headers of the project that `source` includes directly, found in its own or these folders."""
    names = [name.decode() for name in INCLUDE.findall(source.read_bytes())]
    places = [folder / name for name in names for folder in (source.parent, *folders)]
    return [place.resolve() for place in places if place.is_file()]


def with_headers(source, folders):
    """`source` and all headers of the project that it includes, in a stable order."""
    reached, waiting = set(), [source]
    while waiting:
        file = waiting.pop()
        if file not in reached:
            reached.add(file)
            waiting += included(file, folders)
    return sorted(reached)


def key(source, command, rules):
    """A digest of everything on which clang-tidy's findings for `source` depend."""
    digest = hashlib.sha256(rules + command.encode())
    folders = tuple(pathlib.Path(word.removeprefix("-I")) for word in shlex.split(command)
                    if word.startswith("-I"))
    for file in with_headers(source, folders):
        digest.update(hashlib.sha256(file.read_bytes()).digest())
    return digest.hexdigest()


def check(source, build, mark):
    """Runs clang-tidy; creates `mark` if the source is clean. Returns the findings, if any."""
    command = ["clang-tidy", "--quiet", "-p", build, str(source)]
    run = subprocess.run(command, capture_output=True, text=True, check=False)
    if run.returncode == 0:
        mark.touch()
        return ""
    return run.stdout + run.stderr


def main(build, *sources):
    wanted = {pathlib.Path(source).resolve() for source in sources}
    rules = pathlib.Path(".clang-tidy").read_bytes()
    rules += subprocess.run(["clang-tidy", "--version"], capture_output=True, check=True).stdout

    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as database:
        commands = {pathlib.Path(entry["file"]).resolve(): entry["command"]
                    for entry in json.load(database)}
    marks = pathlib.Path(build, "tidy")
    marks.mkdir(exist_ok=True)
    keys = {source: marks / key(source, commands[source], rules)
            for source in sorted(wanted & commands.keys())}
    for stale in set(marks.iterdir()) - set(keys.values()):
        stale.unlink()

    changed = {source: mark for source, mark in keys.items() if not mark.exists()}
    print(f"{len(keys)} sources, {len(changed)} to check", flush=True)
    findings = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for found in pool.map(lambda item: check(item[0], build, item[1]), changed.items()):
            if found:
                findings += 1
                print(found, flush=True)
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
