"""The manual pages describe every command and option of the programs."""

import gzip
import subprocess
import unittest

from programs import PROGRAMS, Programs


class Manual(Programs):
    def manual(self, program):
        page = gzip.decompress((self.prefix / f"share/man/man1/{program}.1.gz").read_bytes())
        return page.decode("utf-8").replace("\\-", "-")

    def test_the_manual_describes_every_command_and_option(self):
        for program in PROGRAMS:
            page = self.manual(program)
            for command in self.everything(program):
                for word in (*command, *self.options_of(*command)):
                    self.assertRegex(page, rf"(?<![\w-]){word}(?![\w-])", f"{program}: {word}")

    def test_the_manual_is_well_formed(self):
        for program in PROGRAMS:
            shown = subprocess.run(
                ["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z",
                 self.prefix / f"share/man/man1/{program}.1.gz"], capture_output=True, text=True,
                env=self.environment | {"MANWIDTH": "80"}, check=True)
            self.assertEqual(shown.stderr, "")
            self.assertIn("EXIT", shown.stdout)


if __name__ == "__main__":
    unittest.main()
