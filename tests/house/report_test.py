"""The count at the end of a test run is correct."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

from house import ROOT

PASSED = '<testcase name="passed" status="run"/>'
FAILED = '<testcase name="broken" status="fail"><failure message=""/></testcase>'
SKIPPED = '<testcase name="left out" status="notrun"><skipped message="SKIP"/></testcase>'
DISABLED = '<testcase name="switched off" status="disabled"/>'


def report(cases, *checks):
    """The exit code and printed lines for a run of these cases and checks."""
    with tempfile.TemporaryDirectory() as folder:
        junit = pathlib.Path(folder, "ctest.xml")
        junit.write_text(f"<testsuite>{cases}</testsuite>", "utf-8")
        run = subprocess.run([sys.executable, ROOT / "scripts/report.py", junit, *checks],
                             capture_output=True, text=True, check=False)
    return run.returncode, run.stdout.splitlines()


class Report(unittest.TestCase):
    def test_all_passed(self):
        self.assertEqual(report(PASSED * 3, "format=passed"), (0, ["4 passed, 0 failed"]))

    def test_a_failed_test_is_named_and_counted(self):
        self.assertEqual(report(PASSED + FAILED), (1, ["broken: fail", "1 passed, 1 failed"]))

    def test_a_skipped_test_counts_as_failed(self):
        self.assertEqual(report(PASSED + SKIPPED), (1, ["left out: notrun", "1 passed, 1 failed"]))

    def test_a_disabled_test_counts_as_failed(self):
        self.assertEqual(report(DISABLED), (1, ["switched off: disabled", "0 passed, 1 failed"]))

    def test_a_failed_check_counts_as_a_test(self):
        self.assertEqual(report(PASSED, "format=failed"),
                         (1, ["format: failed", "1 passed, 1 failed"]))

    def test_a_run_without_tests_counts_as_failed(self):
        self.assertEqual(report("", "format=passed"),
                         (1, ["tests: none were run", "1 passed, 1 failed"]))


if __name__ == "__main__":
    unittest.main()
