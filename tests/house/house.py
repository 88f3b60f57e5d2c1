"""Where things lie in the tree, for the tests of this folder."""

import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[2]
SRC = ROOT / "src"

CORE_ROOMS = ("control", "access", "knowledge", "ports", "localisation")

INCLUDE = re.compile(r'^\s*#\s*include\s+([<"])([^>"]+)[>"]', re.MULTILINE)


def files(folder, *patterns):
    """The files below `folder` whose names match one of the patterns, in a stable order."""
    return sorted(path for pattern in patterns for path in folder.rglob(pattern))


def sources_of_room(room):
    """Headers and sources of one folder of src/, those of its subfolders included."""
    return files(SRC / room, "*.h", "*.cpp")


def platform_top():
    """What lies directly in src/platform, its backends left out."""
    return [path for path in sources_of_room("platform") if path.parent == SRC / "platform"]


def core():
    """Every file of the core."""
    return platform_top() + [path for room in CORE_ROOMS for path in sources_of_room(room)]


def includes(path):
    """The includes of a file as pairs: whether it is an angle include, and what it names."""
    return [(bracket == "<", name) for bracket, name in INCLUDE.findall(path.read_text("utf-8"))]


def shown(path):
    """The path as one finds it from the root."""
    return path.relative_to(ROOT).as_posix()
