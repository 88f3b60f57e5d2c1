"""Runs clang-tidy over sources, and only over those that changed: tidy.py BUILD_DIR SOURCE...

Sources that BUILD_DIR does not compile are left out. A source that was found clean is not looked at
again until the compile command, the rules, the source itself or a header of the project that it
includes has changed. The exit code is 1 if clang-tidy has anything to say.
"""

import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys

INCLUDE = re.compile(rb'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)
ROOTS = [pathlib.Path(name).resolve() for name in ("src", "tests")]


@functools.cache
def included(source):
    """The headers of the project that `source` includes itself."""
    names = [name.decode() for name in INCLUDE.findall(source.read_bytes())]
    places = [root / name for name in names for root in [source.parent, *ROOTS]]
    return [place.resolve() for place in places if place.is_file()]


def with_headers(source):
    """`source` and all headers of the project that it reaches, in a stable order."""
    reached, waiting = set(), [source]
    while waiting:
        file = waiting.pop()
        if file not in reached:
            reached.add(file)
            waiting += included(file)
    return sorted(reached)


def key(source, command, rules):
    """Names everything that clang-tidy's judgement of `source` hangs on."""
    digest = hashlib.sha256(rules + command.encode())
    for file in with_headers(source):
        digest.update(hashlib.sha256(file.read_bytes()).digest())
    return digest.hexdigest()


def judge(source, build, mark):
    """Runs clang-tidy; leaves `mark` if it is content. Gives what it said, or nothing."""
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
    print(f"{len(keys)} sources, {len(changed)} to look at", flush=True)
    complaints = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for said in pool.map(lambda item: judge(item[0], build, item[1]), changed.items()):
            if said:
                complaints += 1
                print(said, flush=True)
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
