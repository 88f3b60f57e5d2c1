"""What the built programs drag in."""

import os
import subprocess
import unittest


def loaded_libraries(program):
    """Every library that the loader would load for `program`, one a line."""
    return subprocess.run(["ldd", program], capture_output=True, text=True, check=True).stdout


class Programs(unittest.TestCase):
    def test_the_command_line_loads_no_widgets(self):
        libraries = loaded_libraries(os.environ["HOUSE_MODULINFO"])
        self.assertIn("libQt6Core", libraries)
        self.assertNotIn("libQt6Gui", libraries)
        self.assertNotIn("libQt6Widgets", libraries)

    def test_the_shared_library_is_complete(self):
        libraries = loaded_libraries(os.environ["HOUSE_LIBRARY"])
        self.assertIn("libQt6Widgets", libraries)
        self.assertNotIn("not found", libraries)


if __name__ == "__main__":
    unittest.main()
