"""What the command line says to wrong usage, and of itself."""

import re
import subprocess
import unittest

from bench import PATIENCE, Bench


class Usage(Bench):
    def test_wrong_usage_ends_in_code_2_with_a_complaint(self):
        module = self.module()
        for arguments, complaint in (
                ([], "A command is required"),
                (["reed"], "reed"),
                (["read"], "required"),
                (["read", "--port", "COM3", "--simulate", module], "option"),
                (["read", "--port", "LPT1"], "LPT1 is neither COM<n> nor NFC"),
                (["read", "--port", "COM0"], "COM0"),
                (["read", "--simulate", self.folder / "absent.json"], "absent.json"),
                (["read", "--simulate", module, "--address", "256"], "256"),
                (["read", "--simulate", module, "--address", "abc"], "abc"),
                (["read", "--simulate", module, "--baudrate", "0"], "0"),
                (["read", "--simulate", module, "--language", "12"], "12"),
                (["read", "--simulate", module, "--colour"], "--colour"),
                (["settings"], "subcommand"),
                (["settings", "get"], "NAME"),
                (["settings", "set", "Language"], "VALUE"),
                (["simulate"], "MODULE"),
                (["simulate", self.folder / "absent.json"], "absent.json")):
            with self.subTest(arguments):
                self.assertIn(complaint, self.fail_with(2, *arguments))

    def test_a_module_file_that_is_none_is_wrong_usage(self):
        module = self.module()
        module.write_text("{\"vendorId\": 49", encoding="utf-8")
        self.assertIn(str(module), self.fail_with(2, "read", "--simulate", module))
        self.assertIn(str(module), self.fail_with(2, "simulate", module))

    def test_help_tells_commands_and_exit_codes(self):
        text = self.succeed("--help")
        for word in ("read", "simulate", "serve", "settings", "Exit codes", "3 no connection"):
            self.assertIn(word, text)
        for option in ("--port", "--simulate", "--baudrate", "--address", "--language", "--json",
                       "--trace"):
            self.assertIn(option, self.succeed("read", "--help"))

        for option in ("--trace", "--simulate", "--reentrant"):
            self.assertIn(option, self.succeed("serve", "--help"))

    def test_the_version_is_printed(self):
        self.assertRegex(self.succeed("--version"), re.compile(r"^modulinfo \d+\.\d+\.\d+$"))

    def test_output_that_cannot_be_written_is_told(self):
        with open("/dev/full", "w", encoding="utf-8") as full:
            done = subprocess.run([self.modulinfo, "read", "--simulate", self.module()],
                                  env=self.environment, stdout=full, stderr=subprocess.PIPE,
                                  encoding="utf-8", timeout=PATIENCE, check=False)
        self.assertEqual(done.returncode, 1)
        self.assertIn("standard output cannot be written", done.stderr)


if __name__ == "__main__":
    unittest.main()
