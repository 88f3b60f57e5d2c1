"""When something that the build needs is missing, configuring stops and names the package to install."""

import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

from house import ROOT, files, shown

BUILD = pathlib.Path(os.environ["HOUSE_BUILD"])

REQUIREMENT = re.compile(r'^ *tessara_require\("([^"]+)" (\S+) (\w+) (\w+) ?([^)]*)\)', re.MULTILINE)

# Commands that search for what must be in that list.
SEARCH = re.compile(r"\b(find_(package|library|path|file)|pkg_check_modules)\(")


def requirements():
    """What the build requires, as (what, package, kind, name, arguments)."""
    text = (ROOT / "cmake/TessaraLibraries.cmake").read_text("utf-8")
    return [(what, package, kind, name, arguments.split())
            for what, package, kind, name, arguments in REQUIREMENT.findall(text)]


def cached():
    """The variables that CMake keeps for the build under test."""
    text = (BUILD / "CMakeCache.txt").read_text("utf-8")
    return dict(re.findall(r"^([^#/:\n]+):\w+=(.*)$", text, re.MULTILINE))


def module_files():
    """Each file in which pkg-config describes a module; the first of a name is the one it reads."""
    paths = subprocess.run(["pkg-config", "--variable", "pc_path", "pkg-config"],
                           capture_output=True, text=True, check=True).stdout.strip()
    found = {}
    for folder in paths.split(":"):
        for file in pathlib.Path(folder).glob("*.pc"):
            found.setdefault(file.name, file)
    return found


class Requirements(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        # pylint: disable-next=consider-using-with
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        cls.requirements = requirements()
        cache = cached()
        cls.found = {name: cache[name] for _, _, kind, name, _ in cls.requirements
                     if kind in ("HEADER", "PROGRAM")}
        cls.found |= {name: cache[name] for name in ("CMAKE_MAKE_PROGRAM", "CMAKE_CXX_COMPILER",
                                                     "EXPAT_INCLUDE_DIR", "PKG_CONFIG_EXECUTABLE")}

    def configure(self, environment=(), **definitions):
        """Configures anew, with everything else where it was found; returns what CMake reports."""
        build = self.folder / "build"
        # The compiler is examined only once.
        for left_over in (build / "CMakeCache.txt", build / "CMakeFiles/pkgRedirects"):
            left_over.unlink() if left_over.is_file() else shutil.rmtree(left_over, ignore_errors=True)
        definitions = self.found | {"BUILD_TESTING": "ON"} | definitions
        run = subprocess.run(
            ["cmake", "-G", "Ninja", "-S", ROOT, "-B", build,
             *(f"-D{name}={value}" for name, value in definitions.items() if value is not None)],
            env=os.environ | {"LC_ALL": "C.UTF-8"} | dict(environment),
            capture_output=True, text=True, check=False)
        self.assertNotEqual(run.returncode, 0)
        return " ".join(run.stderr.split())

    def without(self, kind, name, argument):
        """Configures as on a machine on which this one thing is not installed."""
        if kind == "CMAKE":
            return self.configure(**{f"CMAKE_DISABLE_FIND_PACKAGE_{name}{argument}": "ON"})
        if kind == "PKG_CONFIG":
            folder = self.folder / f"without-{name}"
            folder.mkdir()
            for file in module_files().values():
                if file.stem != argument:
                    (folder / file.name).symlink_to(file)
            return self.configure({"PKG_CONFIG_LIBDIR": str(folder)})
        found = pathlib.Path(self.found[name])
        ignored = ([str(found)] if kind == "HEADER"
                   else [*os.get_exec_path(), "/usr/bin", "/bin", str(found.parent)])
        return self.configure(**{name: None, "CMAKE_IGNORE_PATH": ";".join(ignored)})

    def test_what_is_missing_is_named_with_its_package(self):
        self.assertGreater(len(self.requirements), 10)
        for what, package, kind, name, arguments in self.requirements:
            # Each component of a CMake package may be missing by itself.
            for argument in (arguments or [""]) if kind == "CMAKE" else arguments[:1]:
                with self.subTest(what, argument=argument):
                    self.assertIn(f"{what} was not found. Install the package {package}.",
                                  self.without(kind, name, argument))

    def test_they_are_all_in_one_list(self):
        build_files = [ROOT / "CMakeLists.txt", ROOT / "cmake/TessaraTargets.cmake"] + [
            file for folder in ("apps", "bench", "data", "packaging", "src", "tests", "tools")
            for file in files(ROOT / folder, "CMakeLists.txt")]
        self.assertGreater(len(build_files), 30)
        for file in build_files:
            self.assertNotRegex(file.read_text("utf-8"), SEARCH, shown(file))

    def test_the_scripts_install_what_is_named(self):
        listed = subprocess.run(
            ["bash", "-c", 'source scripts/packages.sh; printf "%s\\n" "${TEST_PACKAGES[@]}"'],
            cwd=ROOT, capture_output=True, text=True, check=True).stdout.split()
        for what, package, *_ in self.requirements:
            self.assertIn(package, listed, what)


if __name__ == "__main__":
    unittest.main()
