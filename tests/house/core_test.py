"""The core stands on the C++20 standard library alone, and inclusion goes one way."""

import json
import os
import pathlib
import re
import shlex
import subprocess
import unittest

from house import CORE_ROOMS, ROOT, SRC, core, files, includes, shown

BUILD = pathlib.Path(os.environ["HOUSE_BUILD"])

# Left out: <format> and <ranges>, which not every compiler of this project has whole.
STANDARD_HEADERS = set("""
    algorithm any array atomic barrier bit bitset charconv chrono compare complex concepts
    condition_variable coroutine deque exception execution filesystem forward_list fstream
    functional future initializer_list iomanip ios iosfwd iostream istream iterator latch limits
    list locale map memory memory_resource mutex new numbers numeric optional ostream queue random
    ratio regex scoped_allocator semaphore set shared_mutex source_location span sstream stack
    stdexcept stop_token streambuf string string_view syncstream system_error thread tuple
    type_traits typeindex typeinfo unordered_map unordered_set utility valarray variant vector
    version cassert cctype cerrno cfenv cfloat cinttypes climits clocale cmath csetjmp csignal
    cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype
""".split())

# A file includes headers of its own height or lower. The first pattern that fits decides.
HEIGHTS = [(re.compile(pattern), height) for pattern, height in (
    (r"apps/", 3),
    (r"src/(platform/\w+|drivers|host|simulator|\w+tool)/", 2),
    (rf"src/({'|'.join(CORE_ROOMS)})/", 1),
    (r"src/platform/", 0),
)]

RUNTIME = re.compile(r"lib(stdc\+\+|m|gcc_s|c|asan|ubsan)\.so|ld-linux")


def height(name):
    """The height of a file, by its path from the root."""
    return next((height for pattern, height in HEIGHTS if pattern.match(name)), None)


class Core(unittest.TestCase):
    def test_includes_only_standard_headers_and_itself(self):
        own = {path.relative_to(SRC).as_posix() for path in core()}
        self.assertGreater(len(own), 20)
        for path in core():
            for angle, name in includes(path):
                allowed = name in (STANDARD_HEADERS if angle else own)
                self.assertTrue(allowed, f"{shown(path)} includes {name}")

    def test_has_no_conditional_compilation(self):
        for path in core():
            found = re.search(r"^\s*#\s*(if|ifdef|ifndef|elif)\b.*", path.read_text("utf-8"), re.M)
            self.assertIsNone(found, f"{shown(path)}: {found and found[0]}")

    def test_is_compiled_with_no_include_folder_but_src(self):
        core_files = set(core())
        seen = 0
        for entry in json.loads((BUILD / "compile_commands.json").read_text("utf-8")):
            path = pathlib.Path(entry["file"])
            if path in core_files:
                seen += 1
                folders = [word for word in shlex.split(entry["command"])
                           if word.startswith(("-I", "-isystem", "-iquote", "-include"))]
                self.assertEqual(folders, [f"-I{SRC}"], shown(path))
        self.assertGreater(seen, 10)

    def test_links_with_nothing_but_the_language_runtime(self):
        dynamic = subprocess.run(["readelf", "-d", os.environ["HOUSE_CORE_ALONE"]],
                                 capture_output=True, text=True, check=True).stdout
        needed = re.findall(r"\(NEEDED\).*\[(.+)\]", dynamic)
        self.assertTrue(needed)
        for library in needed:
            self.assertRegex(library, RUNTIME)


class Inclusion(unittest.TestCase):
    def test_never_points_upwards(self):
        for path in files(SRC, "*.h", "*.cpp") + files(ROOT / "apps", "*.h", "*.cpp"):
            own = height(shown(path))
            self.assertIsNotNone(own, f"{shown(path)} lies in no known layer")
            for angle, name in includes(path):
                below = height(f"src/{name}")
                upwards = not angle and below is not None and below > own
                self.assertFalse(upwards, f"{shown(path)} includes {name}")


if __name__ == "__main__":
    unittest.main()
