"""A host is built against the installation, with CMake and with pkg-config."""

import os
import subprocess
import threading
import unittest

from staging import COMPILER, FLAGS, PATIENCE, ROOT, Staged, run

COUNT_MEMBERS = """
#include "control/MemberTable.h"
#include <iostream>
int main() { std::cout << tessara::memberTable().size() << std::endl; }
"""


class Host(Staged):
    def configure(self, source, name, **wanted):
        build = self.folder / name
        definitions = {"CMAKE_PREFIX_PATH": self.prefix, "CMAKE_CXX_COMPILER": COMPILER,
                       "CMAKE_CXX_FLAGS": FLAGS} | wanted
        run("cmake", "-G", "Ninja", "-S", source, "-B", build,
            *(f"-D{key}={value}" for key, value in definitions.items()))
        return build

    def test_the_example_reads_a_module(self):
        build = self.configure(ROOT / "docs/examples/host", "example")
        run("cmake", "--build", build)
        with subprocess.Popen([build / "configuration", self.module], stdout=subprocess.PIPE,
                              text=True, cwd=self.home, env=self.environment) as host:
            ending = threading.Timer(PATIENCE, host.kill)
            ending.start()
            said = []
            while len(said) < 3:
                said.append(host.stdout.readline().rstrip("\n"))
                if said[-1] == "":
                    break
            ending.cancel()
            host.kill()
        self.assertEqual(said[:2], ["ModulActive 1", "ModulActive 0"])
        self.assertRegex(said[2], r"^TESSARA UM 161.*, 0 -> No error")

    def test_another_minor_version_is_refused(self):
        source = self.folder / "other"
        source.mkdir()
        (source / "CMakeLists.txt").write_text(
            "cmake_minimum_required(VERSION 3.25)\nproject(Other LANGUAGES CXX)\n"
            "find_package(TessaraModulInfo 0.999 REQUIRED)\n", "utf-8")
        with self.assertRaisesRegex(AssertionError, "compatible with requested"):
            self.configure(source, "other-build")

    def test_pkg_config_provides_the_flags(self):
        source, program = self.folder / "count.cpp", self.folder / "count"
        source.write_text(COUNT_MEMBERS, "utf-8")
        environment = os.environ | {"PKG_CONFIG_PATH": str(self.libraries / "pkgconfig")}
        flags = run("pkg-config", "--cflags", "--libs", "tessara-modulinfo",
                    env=environment).split()
        run(COMPILER, *FLAGS.split(), source, "-o", program, *flags)
        members = run(program, env=self.environment | {"LD_LIBRARY_PATH": str(self.libraries)})
        self.assertGreater(int(members), 50)


if __name__ == "__main__":
    unittest.main()
