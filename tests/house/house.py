"""Where things lie in the tree, for the tests of this folder."""

import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[2]
SRC = ROOT / "src"

# The rooms of the control: one library, one class.
ROOMS = ("control", "access", "knowledge", "ports", "localisation", "dialogs", "widgets")
# What stands on the standard library alone.
CORE = ROOMS + ("platform", "base")

# Folders that are searched for included files, beside the folder of the including file.
ROOTS = ("src", "apps", "apps/modulinfo", "apps/modulinfo-panel", ".")

INCLUDE = re.compile(r'^\s*#\s*include\s+([<"])([^">]+)[">]', re.MULTILINE)


def files(folder, *patterns):
    """The files below `folder` whose names match one of the patterns, in a stable order."""
    return sorted(path for pattern in patterns for path in folder.rglob(pattern))


def sources(*folders):
    """Headers and sources below folders of the root, those of their subfolders included."""
    return [path for folder in folders for path in files(ROOT / folder, "*.h", "*.cpp")]


def core():
    """Every file of the core and what it stands on."""
    return sources(*(f"src/{folder}" for folder in CORE))


def includes(path):
    """The includes of a file as pairs: whether it is an angle include, and what it names."""
    return [(bracket == "<", name) for bracket, name in INCLUDE.findall(path.read_text("utf-8"))]


def included_file(path, name):
    """The file of this tree that `path` includes as "name"; None for a generated one."""
    candidates = [path.parent / name] + [ROOT / root / name for root in ROOTS]
    return next((found.resolve() for found in candidates if found.exists()), None)


def room(path):
    """The folder that counts as one part of the house: "src/access", "apps/common"."""
    return "/".join(path.relative_to(ROOT).parts[:2])


def shown(path):
    """The path from the root."""
    return path.relative_to(ROOT).as_posix()
