"""The libraries that the built programs load."""

import os
import subprocess
import unittest


def loaded_libraries(program):
    """The libraries that the loader would load for `program`, one per line."""
    return subprocess.run(["ldd", program], capture_output=True, text=True, check=True,
                          env=os.environ | {"LC_ALL": "C"}).stdout


class Programs(unittest.TestCase):
    def test_the_command_line_loads_neither_qt_nor_icu(self):
        libraries = loaded_libraries(os.environ["HOUSE_MODULINFO"])
        self.assertIn("libglib-2.0", libraries)
        self.assertNotIn("libQt6", libraries)
        self.assertNotIn("libicu", libraries)

    def test_the_shared_library_is_complete(self):
        libraries = loaded_libraries(os.environ["HOUSE_LIBRARY"])
        self.assertIn("libQt6Widgets", libraries)
        self.assertNotIn("not found", libraries)


if __name__ == "__main__":
    unittest.main()
