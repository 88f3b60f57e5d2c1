"""The scripts install only packages that are missing."""

import subprocess
import unittest

from house import ROOT


def missing(*packages):
    """Those of the packages that the scripts would install."""
    command = ["bash", "-c", 'source scripts/packages.sh; missingPackages "$@"', "bash", *packages]
    return subprocess.run(command, cwd=ROOT, capture_output=True, text=True,
                          check=True).stdout.split()


class Packages(unittest.TestCase):
    def test_an_installed_package_is_not_missing(self):
        self.assertEqual(missing("bash", "coreutils"), [])

    def test_a_package_that_dpkg_does_not_know_is_missing(self):
        self.assertEqual(missing("bash", "no-such-package-at-all"), ["no-such-package-at-all"])


if __name__ == "__main__":
    unittest.main()
