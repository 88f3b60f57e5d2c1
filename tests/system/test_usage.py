"""How the command line answers wrong usage, and its help."""

import re
import subprocess
import unittest

from bench import PATIENCE, SAMPLES, Bench


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
                (["read", "--simulate", module, "--address", "248"],
                 "248 is not an address: Modbus and NFC take 1 to 247, HART takes 0 to 63"),
                (["read", "--simulate", module, "--address", "-1"], "-1 is not an address"),
                (["read", "--simulate", module, "--address", "abc"], "abc is not a whole number"),
                (["read", "--simulate", module, "--baudrate", "299"],
                 "299 bit/s is too low: below 300 bit/s a read would take minutes"),
                (["read", "--simulate", module, "--baudrate", "fast"],
                 "fast is not a whole number"),
                (["read", "--simulate", module, "--language", "12"], "12"),
                (["read", "--simulate", module, "--colour"], "--colour"),
                (["settings"], "subcommand"),
                (["settings", "get"], "NAME"),
                (["settings", "set", "Language"], "VALUE"),
                (["simulate"], "MODULE"),
                (["simulate", self.folder / "absent.json"], "absent.json")):
            with self.subTest(arguments):
                self.assertIn(complaint, self.fail_with(2, *arguments))

    def test_an_address_that_the_path_does_not_have_is_refused_before_connecting(self):
        for sample, path, addresses, wrong in (
                ("tessara-tm-151", "Modbus", "1 to 247", ["0"]),
                ("nfc-twn4-healthy", "NFC", "1 to 247", ["0"]),
                ("nfc-usb-healthy", "NFC", "1 to 247", ["0"]),
                ("hart-healthy", "HART", "0 to 63", ["64", "192"])):
            for address in wrong:
                with self.subTest(sample=sample, address=address):
                    complaint = self.fail_with(2, "read", "--trace", "--simulate",
                                               SAMPLES / f"{sample}.json", "--address", address)
                    self.assertIn(f"--address: {path} takes {addresses}, not {address}", complaint)
                    self.assertNotIn("ConnectWithSerialDevice", complaint)

    def test_the_lowest_rate_is_taken(self):
        self.assertIn("4711", self.succeed("read", "--simulate", self.module(), "--baudrate", 300))

    def test_a_file_that_is_not_a_module_file_is_wrong_usage(self):
        module = self.module()
        module.write_text("{\"vendorId\": 49", encoding="utf-8")
        self.assertIn(str(module), self.fail_with(2, "read", "--simulate", module))
        self.assertIn(str(module), self.fail_with(2, "simulate", module))

    def test_help_lists_commands_and_exit_codes(self):
        text = self.succeed("--help")
        for word in ("read", "simulate", "serve", "settings", "Exit codes", "3 no connection"):
            self.assertIn(word, text)
        for option in ("--port", "--simulate", "--baudrate", "--address", "--language", "--json",
                       "--trace", "1 to 247", "0 to 63"):
            self.assertIn(option, " ".join(self.succeed("read", "--help").split()))

        for option in ("--trace", "--simulate", "--reentrant"):
            self.assertIn(option, self.succeed("serve", "--help"))

    def test_the_version_is_printed(self):
        self.assertRegex(self.succeed("--version"), re.compile(r"^modulinfo \d+\.\d+\.\d+$"))

    def test_output_that_cannot_be_written_is_a_failure(self):
        with open("/dev/full", "w", encoding="utf-8") as full:
            done = subprocess.run([self.modulinfo, "read", "--simulate", self.module()],
                                  env=self.environment, stdout=full, stderr=subprocess.PIPE,
                                  encoding="utf-8", timeout=PATIENCE, check=False)
        self.assertEqual(done.returncode, 1)
        self.assertIn("standard output cannot be written", done.stderr)


if __name__ == "__main__":
    unittest.main()
