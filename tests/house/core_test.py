"""The core stands on the C++20 standard library alone."""

import json
import os
import pathlib
import re
import shlex
import subprocess
import unittest

from house import ROOT, SRC, core, includes, shown

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

RUNTIME = re.compile(r"lib(stdc\+\+|m|gcc_s|c|asan|ubsan)\.so|ld-linux")


def words_of(entry, *beginnings):
    """The words of a compiler command that begin so, with the word behind one that stands alone."""
    words = iter(shlex.split(entry["command"]))
    return [word if word not in beginnings else f"{word} {next(words)}"
            for word in words if word.startswith(beginnings)]


def core_commands():
    """How the sources of the core are compiled: each by itself, or several included in one."""
    core_files = set(core())
    for entry in json.loads((BUILD / "compile_commands.json").read_text("utf-8")):
        file = pathlib.Path(entry["file"])
        together = ([pathlib.Path(name) for _, name in includes(file)]
                    if file.parent.name == "Unity" and file.is_file() else [file])
        if core_files & set(together):
            yield entry, len(together)


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
        commands = list(core_commands())
        self.assertGreater(sum(sources for _, sources in commands), 30)
        for entry, _ in commands:
            self.assertEqual(words_of(entry, "-I", "-isystem", "-iquote"), [f"-I{SRC}"], entry["file"])

    def test_precompiles_only_standard_headers(self):
        precompiled = {word.split(" ", 1)[1] for entry, _ in core_commands()
                       for word in words_of(entry, "-include")}
        self.assertEqual(len(precompiled), 1)
        generated = pathlib.Path(precompiled.pop())
        own = ROOT / "cmake/headers/standard.h"
        self.assertEqual([name for _, name in includes(generated)], [str(own)])
        for _, name in includes(own):
            self.assertIn(name, STANDARD_HEADERS)

    def test_links_with_nothing_but_the_language_runtime(self):
        dynamic = subprocess.run(["readelf", "-d", os.environ["HOUSE_CORE_ALONE"]],
                                 capture_output=True, text=True, check=True).stdout
        needed = re.findall(r"\(NEEDED\).*\[(.+)\]", dynamic)
        self.assertTrue(needed)
        for library in needed:
            self.assertRegex(library, RUNTIME)


if __name__ == "__main__":
    unittest.main()
