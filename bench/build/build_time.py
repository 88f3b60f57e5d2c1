#!/usr/bin/python3
"""Compares what it takes to build two commits: build_time.py BEFORE [AFTER] [--preset NAME...]

Clones both commits into a temporary folder, configures each preset without a compiler cache, builds it
from nothing and prints the processor seconds (user and system) of each build and their ratio, AFTER to
BEFORE. AFTER is HEAD unless given; the presets are release and sanitize.
"""

import argparse
import os
import pathlib
import resource
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
NO_CACHE = {**os.environ, "CCACHE_DISABLE": "1"}


def run(*command, folder):
    subprocess.run(command, cwd=folder, env=NO_CACHE, check=True, stdout=subprocess.DEVNULL)


def processor_seconds():
    """The processor time of all finished child processes so far."""
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


def build_seconds(folder, preset):
    """Builds `preset` from nothing and returns the processor seconds of the build alone."""
    run("cmake", "--preset", preset, "-DTESSARA_CCACHE=", folder=folder)
    start = processor_seconds()
    run("cmake", "--build", f"build/{preset}", folder=folder)
    return processor_seconds() - start


def main():
    parser = argparse.ArgumentParser(description="Compares the build times of two commits.")
    parser.add_argument("before")
    parser.add_argument("after", nargs="?", default="HEAD")
    parser.add_argument("--preset", nargs="+", default=["release", "sanitize"])
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as temporary:
        clones = {}
        for name in ("before", "after"):
            clones[name] = pathlib.Path(temporary) / name
            run("git", "clone", "-q", ROOT, clones[name], folder=ROOT)
            commit = subprocess.run(["git", "rev-parse", getattr(arguments, name)], cwd=ROOT,
                                    capture_output=True, text=True, check=True).stdout.strip()
            run("git", "checkout", "-q", commit, folder=clones[name])
        for preset in arguments.preset:
            seconds = {name: build_seconds(folder, preset) for name, folder in clones.items()}
            print(f"{preset}: {seconds['before']:.0f} s before, {seconds['after']:.0f} s after, "
                  f"ratio {seconds['after'] / seconds['before']:.2f}", flush=True)


if __name__ == "__main__":
    main()
