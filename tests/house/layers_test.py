"""Inclusion goes one way: the arrows between the folders close no circle and never point up."""

import unittest

from house import ROOMS, ROOT, included_file, includes, room, shown, sources

# A folder includes folders of its own height or lower.
PROGRAMS = ("apps/modulinfo", "apps/modulinfo-panel")
HEIGHTS = {name: 6 for name in PROGRAMS} | {"src/host": 4, "src/platform": 1, "src/base": 0} | {
    f"src/{name}": 2 for name in ROOMS}
HEIGHT_OF_OTHERS = {"apps": 5, "tools": 5, "src": 3}

# The control is one class: its rooms define its members and include its headers.
HUB = {f"src/control/{name}.h" for name in ("Control", "ModulInfoFLII", "ModuleWide")}


def height(folder):
    return HEIGHTS.get(folder, HEIGHT_OF_OTHERS[folder.split("/")[0]])


def is_member_definition(path, target):
    """A source of a room that includes the class it defines members of."""
    return (shown(target) in HUB and path.suffix == ".cpp"
            and room(path) in {f"src/{name}" for name in ROOMS})


def arrows():
    """Each pair of folders of which the first includes the second, with one place that does."""
    found = {}
    for path in sources("src", "apps", "tools"):
        for angle, name in includes(path):
            target = None if angle else included_file(path, name)
            if target is None or is_member_definition(path, target):
                continue
            if room(path) != room(target):
                found.setdefault((room(path), room(target)), f"{shown(path)} includes {name}")
    return found


def circle(pairs):
    """The folders of one circle, the first one again at the end; None if there is none."""
    following = {}
    for begin, end in sorted(pairs):
        following.setdefault(begin, []).append(end)
    done = set()

    def search(folder, road):
        if folder in road:
            return road[road.index(folder):] + [folder]
        if folder in done:
            return None
        found = next(filter(None, (search(end, road + [folder])
                                   for end in following.get(folder, []))), None)
        done.add(folder)
        return found

    return next(filter(None, (search(folder, []) for folder in sorted(following))), None)


class Layers(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.arrows = arrows()

    def test_arrows_close_no_circle(self):
        self.assertGreater(len(self.arrows), 50)
        found = circle(self.arrows)
        if found:
            self.fail(" -> ".join(found) + "".join(
                f"\n  {self.arrows[pair]}" for pair in zip(found, found[1:])))

    def test_a_circle_is_found_and_named(self):
        self.assertIsNone(circle([("a", "b"), ("b", "c"), ("a", "c")]))
        self.assertEqual(circle([("a", "b"), ("b", "c"), ("c", "d"), ("d", "b")]),
                         ["b", "c", "d", "b"])

    def test_arrows_never_point_up(self):
        for (begin, end), place in self.arrows.items():
            self.assertGreaterEqual(height(begin), height(end), place)

    def test_nothing_includes_a_file_of_a_program(self):
        for (_, end), place in self.arrows.items():
            self.assertNotIn(end, PROGRAMS, place)

    def test_only_sources_of_the_rooms_use_the_class_of_the_control(self):
        inner = ROOT / "src/control/Control.h"
        for path in sources("src", "apps", "tools", "bench"):
            uses = any(not angle and included_file(path, name) == inner
                       for angle, name in includes(path))
            allowed = path.suffix == ".cpp" and room(path) in {f"src/{name}" for name in ROOMS}
            self.assertTrue(allowed or not uses, shown(path))


if __name__ == "__main__":
    unittest.main()
