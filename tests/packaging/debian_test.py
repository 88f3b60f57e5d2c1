"""The Debian packages of this build: contents, lintian, installation and removal."""

import json
import pathlib
import re
import subprocess
import unittest

from other_system import OtherSystem
from staging import BUILD, Staged, run

# Documents that only packages contain.
DOCUMENTS = re.compile(r"usr/share/(doc|lintian)/")


def fields(package):
    """The control fields of a package, with continuation lines joined."""
    text = re.sub(r"\n +", "\n ", run("dpkg-deb", "--field", package))
    return dict(re.findall(r"^([\w-]+): (.*(?:\n .*)*)$", text, re.M))


def contents(package):
    """The files and links of a package, as paths from the root."""
    listing = run("dpkg-deb", "--contents", package)
    paths = (line.split(None, 5)[5].split(" -> ")[0] for line in listing.splitlines())
    return {path.removeprefix("./") for path in paths if not path.endswith("/")}


class Debian(Staged):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        # gzip is faster than the compression that is delivered.
        run("cpack", "--config", BUILD / "CPackConfig.cmake", "-B", cls.folder / "packages",
            "-D", "CPACK_DEBIAN_COMPRESSION_TYPE=gzip")
        cls.packages = {fields(path)["Package"]: path
                        for path in (cls.folder / "packages").glob("*.deb")}
        cls.fields = {name: fields(path) for name, path in cls.packages.items()}
        cls.contents = {name: contents(path) for name, path in cls.packages.items()}
        cls.library_package = f"libtessaramodulinfo{cls.abi()}"

    @classmethod
    def abi(cls):
        """The ABI number: the one in the file name by which hosts load the library."""
        return next(cls.libraries.glob("libTESSARAModulInfo.so.?")).suffix[1:]

    def test_there_is_one_package_for_each_purpose(self):
        self.assertEqual(set(self.packages), {
            "tessara-modulinfo", "tessara-modulinfo-cli", "tessara-modulinfo-common",
            self.library_package, "libtessaramodulinfo-dev"})
        self.assertEqual(self.fields["tessara-modulinfo-common"]["Architecture"], "all")

    def test_together_they_contain_what_an_installation_contains(self):
        installed = {f"usr/{path.relative_to(self.prefix)}" for path in self.prefix.rglob("*")
                     if path.is_symlink() or not path.is_dir()}
        packed = [path for paths in self.contents.values() for path in paths
                  if not DOCUMENTS.match(path)]
        self.assertEqual(len(packed), len(set(packed)), "two packages contain the same file")
        self.assertEqual(set(packed), installed)

    def test_each_file_is_in_the_package_of_its_purpose(self):
        for name, path in (
                ("tessara-modulinfo-cli", "usr/bin/modulinfo"),
                ("tessara-modulinfo-cli", "usr/share/man/man1/modulinfo.1.gz"),
                ("tessara-modulinfo", "usr/bin/modulinfo-panel"),
                ("tessara-modulinfo", "usr/share/man/man1/modulinfo-panel.1.gz"),
                ("tessara-modulinfo", "usr/share/applications/modulinfo-panel.desktop"),
                ("tessara-modulinfo-common", "usr/lib/udev/rules.d/60-tessara-modulinfo.rules"),
                ("tessara-modulinfo-common", "usr/share/tessara-modulinfo/TessaraDevices.xml"),
                ("tessara-modulinfo-common", "usr/share/tessara-modulinfo/Help_049.chm"),
                ("libtessaramodulinfo-dev", "usr/include/tessara-modulinfo/host/ModulInfoPanel.h")):
            self.assertIn(path, self.contents[name])
        links = {pathlib.Path(path).name for path in self.contents[self.library_package]}
        self.assertIn(self.library.name, links)
        self.assertNotIn("libTESSARAModulInfo.so", links)
        development = {pathlib.Path(path).name for path in self.contents["libtessaramodulinfo-dev"]}
        self.assertIn("libTESSARAModulInfo.so", development)
        self.assertIn("TessaraModulInfoConfig.cmake", development)

    def test_they_depend_on_what_they_need(self):
        version = self.fields["tessara-modulinfo"]["Version"]
        common = f"tessara-modulinfo-common (= {version})"
        panel = self.fields["tessara-modulinfo"]["Depends"]
        command_line = self.fields["tessara-modulinfo-cli"]["Depends"]
        library = self.fields[self.library_package]["Depends"]
        self.assertIn(f"tessara-modulinfo-cli (= {version})", panel)
        self.assertIn(common, command_line)
        self.assertNotIn("qt6", command_line)
        for depends in (panel, library):
            self.assertIn(common, depends)
            for needed in ("libc6", "libqt6widgets6", "libmodbus5", "libexpat1"):
                self.assertRegex(depends, rf"\b{needed} \(>= ")
        self.assertIn(f"{self.library_package} (= {version})",
                      self.fields["libtessaramodulinfo-dev"]["Depends"])

    def test_the_library_names_the_package_that_hosts_need(self):
        shlibs = run("dpkg-deb", "--info", self.packages[self.library_package], "shlibs")
        version = self.fields["tessara-modulinfo"]["Version"]
        self.assertEqual(shlibs.strip(), f"libTESSARAModulInfo {self.abi()} {self.library_package} "
                                         f"(>= {version})")

    def test_the_system_reloads_rules_and_libraries(self):
        triggers = run("dpkg-deb", "--info", self.packages[self.library_package], "triggers")
        self.assertEqual(triggers.split(), ["activate-noawait", "ldconfig"])
        script = run("dpkg-deb", "--info", self.packages["tessara-modulinfo-common"], "postinst")
        self.assertIn("udevadm control --reload", script)
        run("sh", "-n", "-c", script)

    def test_each_package_has_its_own_summary(self):
        summaries = {self.fields[name]["Description"].splitlines()[0] for name in self.packages}
        self.assertEqual(len(summaries), len(self.packages))
        for name in self.packages:
            self.assertIn("\n Analog interface modules are", self.fields[name]["Description"])

    def test_lintian_reports_nothing(self):
        checked = subprocess.run(["lintian", "--allow-root", "--fail-on", "error,warning",
                                  *self.packages.values()], capture_output=True, text=True,
                                 check=False, env=self.environment)
        self.assertEqual((checked.stdout, checked.returncode), ("", 0))

    def system(self):
        return OtherSystem(self.folder / self.id(), self.packages)

    def install(self):
        """Installs the packages in a system twice: anew and over themselves."""
        system = self.system()
        for _ in range(2):
            system.dpkg("--install", *self.packages.values())
            self.assertEqual(system.files(), set().union(*self.contents.values()))
        return system

    def test_programs_work_where_they_are_installed(self):
        root = self.install().root
        module = root / "usr/share/tessara-modulinfo/modules/tessara-um-161.json"
        read = run(root / "usr/bin/modulinfo", "read", "--simulate", module, "--language", "2",
                   "--json", env=self.environment, cwd=self.home)
        self.assertIn("No error", json.loads(read)["moduleStatus"])
        picture = root / "panel.png"
        run(root / "usr/bin/modulinfo-panel", "--simulate", module, "--screenshot", picture,
            env=self.environment, cwd=self.home)
        self.assertTrue(picture.is_file())

    def test_they_are_removed_completely_and_in_order(self):
        system = self.install()
        with self.assertRaisesRegex(AssertionError, "dependency problems"):
            system.dpkg("--remove", "tessara-modulinfo-common")
        system.dpkg("--purge", *self.packages)
        self.assertEqual(system.files(), set())

    def test_apt_installs_and_removes_what_technicians_need(self):
        system = self.system()
        needed = ("tessara-modulinfo", "tessara-modulinfo-cli", "tessara-modulinfo-common")
        with self.assertRaisesRegex(AssertionError, "Depends: tessara-modulinfo-common"):
            system.apt("install", self.packages["tessara-modulinfo"])
        system.apt("install", *(self.packages[name] for name in needed))
        self.assertEqual(system.files(), set().union(*(self.contents[name] for name in needed)))
        system.apt("purge", *needed)
        self.assertEqual(system.files(), set())

    def test_apt_installs_the_command_line_without_the_panel(self):
        system = self.system()
        needed = ("tessara-modulinfo-cli", "tessara-modulinfo-common")
        system.apt("install", *(self.packages[name] for name in needed))
        module = system.root / "usr/share/tessara-modulinfo/modules/tessara-um-161.json"
        read = run(system.root / "usr/bin/modulinfo", "read", "--simulate", module, "--language", "2",
                   "--json", env=self.environment, cwd=self.home)
        self.assertIn("No error", json.loads(read)["moduleStatus"])

    def test_apt_removes_the_development_package_with_the_library(self):
        system = self.system()
        system.apt("install", *self.packages.values())
        system.apt("remove", self.library_package)
        gone = self.contents[self.library_package] | self.contents["libtessaramodulinfo-dev"]
        self.assertEqual(system.files(), set().union(*self.contents.values()) - gone)


if __name__ == "__main__":
    unittest.main()
