"""`modulinfo settings`, and what broken settings do to a read."""

import os
import unittest

from bench import Bench

BROKEN = "[Settings]\nLanguage=1\nrubbish\n"


class Settings(Bench):
    def test_there_are_none_at_first(self):
        self.assertEqual(self.succeed("settings", "list"), "")
        self.assertEqual(self.fail_with(1, "settings", "get", "Language"),
                         "modulinfo: Language is not set\n")

    def test_what_was_set_is_got_and_listed(self):
        for name, value in (("Language", "2"), ("COM Port", "3"), ("Logo", "our logo.png"),
                            ("Ports/COM9/Device", "/dev/pts/5"),
                            ("Ports/COM9/Name", "\\Device\\Silabser9")):
            self.assertEqual(self.succeed("settings", "set", name, value), "")
            self.assertEqual(self.succeed("settings", "get", name), value + "\n")
        self.assertEqual(self.succeed("settings", "list"),
                         "COM Port=3\nLanguage=2\nLogo=our logo.png\n"
                         "Ports/COM9/Device=/dev/pts/5\nPorts/COM9/Name=\\Device\\Silabser9\n")

    def test_an_empty_value_removes_a_setting(self):
        self.succeed("settings", "set", "Language", "2")
        self.succeed("settings", "set", "Language", "")
        self.fail_with(1, "settings", "get", "Language")
        self.assertEqual(self.succeed("settings", "set", "Language", ""), "")

    def test_the_system_wide_file_stands_behind_the_users(self):
        file = self.folder / "system" / "Orvane" / "Tessara-Conf.ini"
        file.parent.mkdir(parents=True)
        file.write_text("[Settings]\nLanguage=3\nLogo=maker.png\n", encoding="utf-8")
        self.succeed("settings", "set", "Language", "2")
        self.assertEqual(self.succeed("settings", "list"), "Language=2\nLogo=maker.png\n")
        self.assertEqual(file.read_text("utf-8"), "[Settings]\nLanguage=3\nLogo=maker.png\n")

    def test_a_value_that_a_setting_cannot_have(self):
        for name, value, complaint in (
                ("Language", "12", "Language is a number from 0 to 11, not \"12\""),
                ("Language", "2x", "not \"2x\""),
                ("COM Port", "0", "COM Port is a number from 1 to 32767"),
                ("ShowAllComPorts", "-1", "ShowAllComPorts is a number from 0 to 1"),
                ("Languages", "2", "\"Languages\" is no setting; there are Language"),
                ("Ports/COM999/Device", "/dev/pts/5", "\"Ports/COM999/Device\" is no setting"),
                ("Ports/COM9/Path", "/dev/pts/5", "\"Ports/COM9/Path\" is no setting"),
                ("Ports/COM9", "/dev/pts/5", "\"Ports/COM9\" is no setting")):
            with self.subTest(name, value=value):
                self.assertIn(complaint, self.fail_with(2, "settings", "set", name, "--", value))
        self.assertFalse(self.settings_file.exists())

    def test_a_value_of_several_lines_is_refused(self):
        self.assertIn("one line of text", self.fail_with(1, "settings", "set", "Logo", "a\nb"))

    def test_a_broken_file_is_named_and_left_alone(self):
        self.write_settings(BROKEN)
        for arguments in (["list"], ["get", "Language"], ["set", "Language", "2"]):
            complaint = self.fail_with(1, "settings", *arguments)
            self.assertIn(f"{self.settings_file} cannot be read: line 3: \"rubbish\"", complaint)
        self.assertEqual(self.settings_file.read_text("utf-8"), BROKEN)

    def test_a_read_ends_at_a_broken_file(self):
        self.write_settings(BROKEN)
        complaint = self.fail_with(3, "read", "--simulate", self.module())
        self.assertIn(f"{self.settings_file} cannot be read: line 3", complaint)
        self.assertEqual(self.settings_file.read_text("utf-8"), BROKEN)

    def test_a_read_ends_at_a_setting_that_is_no_number(self):
        self.write_settings("[Settings]\nShowAllComPorts=perhaps\n")
        self.assertIn('The setting ShowAllComPorts: "perhaps" is no number',
                      self.fail_with(3, "read", "--simulate", self.module()))

    def test_a_read_ends_at_an_entry_that_is_no_port(self):
        self.write_settings("[Ports]\nCOMx\\Device=/dev/pts/5\n")
        self.assertIn("Ports/COMx/Device names no port",
                      self.fail_with(3, "read", "--simulate", self.module()))

    def test_a_file_that_cannot_be_written_is_named_and_left_alone(self):
        self.write_settings("[Settings]\nLanguage=1\n")
        self.settings_file.chmod(0o444)
        self.settings_file.parent.chmod(0o555)
        self.addCleanup(self.settings_file.parent.chmod, 0o755)
        complaint = self.fail_with(1, "settings", "set", "Language", "2", **self.bound_by_modes())
        self.assertIn(f"{self.settings_file} cannot be written", complaint)
        self.assertEqual(self.settings_file.read_text("utf-8"), "[Settings]\nLanguage=1\n")
        self.assertEqual(os.listdir(self.settings_file.parent), [self.settings_file.name])

    def test_a_file_that_cannot_be_read_is_named(self):
        self.write_settings("[Settings]\nLanguage=1\n")
        self.settings_file.chmod(0)
        self.assertIn(f"{self.settings_file} cannot be read: Permission denied",
                      self.fail_with(1, "settings", "get", "Language", **self.bound_by_modes()))


if __name__ == "__main__":
    unittest.main()
