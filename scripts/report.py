"""Counts the results of a test run: report.py JUNIT.xml [CHECK=passed|failed ...]

JUNIT.xml is written by ctest. Each test and each check named on the command line counts once; a
test that was skipped, disabled or not run counts as failed, and so does a run without tests. The
last line printed is "N passed, N failed"; the exit code is 0 if nothing failed.
"""

import sys
import xml.etree.ElementTree as ElementTree


def failed_tests(report):
    """Yields the name and status of each test that did not pass."""
    for case in report.iter("testcase"):
        if case.get("status") != "run" or case.find("skipped") is not None:
            yield case.get("name"), case.get("status")


def main(report_path, *checks):
    report = ElementTree.parse(report_path).getroot()
    tests = len(list(report.iter("testcase")))
    failed = list(failed_tests(report))
    failed += [tuple(check.split("=")) for check in checks if not check.endswith("=passed")]
    passed = tests + len(checks) - len(failed)
    if not tests:
        failed.append(("tests", "none were run"))
    for name, outcome in failed:
        print(f"{name}: {outcome}")
    print(f"{passed} passed, {len(failed)} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
