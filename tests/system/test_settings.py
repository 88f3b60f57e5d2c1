"""`modulinfo settings`, and what broken settings do to a read."""

import os
import subprocess
import time
import unittest

from bench import PATIENCE, Bench

BROKEN = "[Settings]\nLanguage=1\nrubbish\n"


class Settings(Bench):
    def test_no_settings_exist_at_first(self):
        self.assertEqual(self.succeed("settings", "list"), "")
        self.assertEqual(self.fail_with(1, "settings", "get", "Language"),
                         "modulinfo: Language is not set\n")

    def test_a_setting_that_was_set_can_be_read_and_listed(self):
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

    def test_the_system_wide_file_is_the_fallback(self):
        file = self.folder / "system" / "Orvane" / "Tessara-Conf.ini"
        file.parent.mkdir(parents=True)
        file.write_text("[Settings]\nLanguage=3\nLogo=maker.png\n", encoding="utf-8")
        self.succeed("settings", "set", "Language", "2")
        self.assertEqual(self.succeed("settings", "list"), "Language=2\nLogo=maker.png\n")
        self.assertEqual(file.read_text("utf-8"), "[Settings]\nLanguage=3\nLogo=maker.png\n")

    def test_a_value_that_a_setting_cannot_have(self):
        for name, value, complaint in (
                ("Language", "12", "Language must be a number from 0 to 11, not \"12\""),
                ("Language", "2x", "not \"2x\""),
                ("COM Port", "0", "COM Port must be a number from 1 to 32767"),
                ("ShowAllComPorts", "-1", "ShowAllComPorts must be a number from 0 to 1"),
                ("Languages", "2", "\"Languages\" is not a setting; the settings are Language"),
                ("Ports/COM999/Device", "/dev/pts/5", "\"Ports/COM999/Device\" is not a setting"),
                ("Ports/COM9/Path", "/dev/pts/5", "\"Ports/COM9/Path\" is not a setting"),
                ("Ports/COM9", "/dev/pts/5", "\"Ports/COM9\" is not a setting")):
            with self.subTest(name, value=value):
                self.assertIn(complaint, self.fail_with(2, "settings", "set", name, "--", value))
        self.assertFalse(self.settings_file.exists())

    def test_a_value_of_several_lines_is_refused(self):
        self.assertIn("one line of text", self.fail_with(1, "settings", "set", "Logo", "a\nb"))

    def test_a_damaged_file_is_named_and_left_unchanged(self):
        self.write_settings(BROKEN)
        for arguments in (["list"], ["get", "Language"], ["set", "Language", "2"]):
            complaint = self.fail_with(1, "settings", *arguments)
            self.assertIn(f"{self.settings_file} cannot be read: line 3: \"rubbish\"", complaint)
        self.assertEqual(self.settings_file.read_text("utf-8"), BROKEN)

    def test_a_read_fails_on_a_damaged_file(self):
        self.write_settings(BROKEN)
        complaint = self.fail_with(3, "read", "--simulate", self.module())
        self.assertIn(f"{self.settings_file} cannot be read: line 3", complaint)
        self.assertEqual(self.settings_file.read_text("utf-8"), BROKEN)

    def test_a_read_fails_on_a_setting_that_is_not_a_number(self):
        self.write_settings("[Settings]\nShowAllComPorts=perhaps\n")
        self.assertIn('The setting ShowAllComPorts: "perhaps" is not a number',
                      self.fail_with(3, "read", "--simulate", self.module()))

    def test_a_read_ends_at_a_setting_that_is_an_object_or_a_list(self):
        for value in ("@Invalid()", "1, 2"):
            self.write_settings(f"[Settings]\nShowAllComPorts={value}\n")
            self.assertIn(f"The setting Settings/ShowAllComPorts in {self.settings_file}: {value}",
                          self.fail_with(3, "read", "--simulate", self.module()))

    def test_a_read_reports_a_bad_port_and_goes_on(self):
        for line in ("COMx\\Device=/dev/pts/5", "COM0", "COM9\\Name=\\Device\\Viator9"):
            self.write_settings(f"[Ports]\n{line}\n")
            done = self.run_modulinfo("read", "--simulate", self.module())
            self.assertEqual(done.returncode, 0)
            self.assertIn("TESSARA TM 151", done.stdout)
            self.assertRegex(done.stderr, r"\Amodulinfo: .*COM.*; ignored\n\Z")

    def test_an_unusable_value_is_named_and_can_be_replaced_and_removed(self):
        self.write_settings("[Settings]\nLanguage=@Invalid()\nLogo=a.png\n")
        complaint = f"in {self.settings_file}: @Invalid() is neither text nor a number"
        self.assertIn(complaint, self.fail_with(1, "settings", "get", "Language"))
        done = self.run_modulinfo("settings", "list")
        self.assertEqual((done.returncode, done.stdout), (1, "Logo=a.png\n"))
        self.assertIn(complaint, done.stderr)
        self.succeed("settings", "set", "Language", "")
        self.assertEqual(self.settings_file.read_text("utf-8"), "[Settings]\nLogo=a.png\n")

    def test_comments_and_foreign_lines_stay_where_they_are(self):
        text = ("; bench 3\n[Ports]\n# the red cable\nCOM9\\Device=/dev/x\n\n"
                "; below\n[Settings]\nLanguage=1 ; for Anna\n\n[Other]\nBlob=@ByteArray(\\x1)\n")
        self.write_settings(text)
        self.succeed("settings", "set", "Language", "2")
        self.succeed("settings", "set", "Ports/COM10/Device", "/dev/y")
        self.assertEqual(self.settings_file.read_text("utf-8"),
                         text.replace("Language=1", "Language=2")
                         .replace("/dev/x\n", "/dev/x\nCOM10\\Device=/dev/y\n"))

    def test_a_file_that_cannot_be_written_is_named_and_left_unchanged(self):
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

    def test_writers_at_the_same_time_lose_nothing(self):
        writers = [self.start_writer(f"for i in $(seq {first} {first + 49}); do "
                                     f'"$0" settings set Ports/COM$i/Device /dev/$i || exit 1; done')
                   for first in (1, 101)]
        for writer in writers:
            self.assertEqual(writer.wait(PATIENCE), 0)
        self.assertEqual(len(self.succeed("settings", "list").splitlines()), 100)

    def test_killed_writers_lose_nothing_and_hold_nobody_up(self):
        self.write_settings("; bench 3\n[Settings]\nLogo=a.png\nLanguage=1\n")
        start = time.monotonic()
        self.succeed("settings", "set", "Language", "1")
        whole = time.monotonic() - start
        for kill in range(200):
            writer = self.start_writer('exec "$0" settings set Language "$1"', str(kill % 12))
            time.sleep(whole * kill / 200)
            writer.kill()
            writer.wait(PATIENCE)
            self.assertRegex(self.settings_file.read_text("utf-8"),
                             r"\A; bench 3\n\[Settings\]\nLogo=a\.png\nLanguage=(\d|1[01])\n\Z")
        self.succeed("settings", "set", "Language", "2")
        self.assertEqual(sorted(os.listdir(self.settings_file.parent)),
                         [f".{self.settings_file.name}.lock", self.settings_file.name])

    def start_writer(self, script, *arguments):
        """Starts a shell with that script, in which $0 is the program."""
        return subprocess.Popen(["bash", "-c", script, self.modulinfo, *arguments],
                                env=self.environment)


if __name__ == "__main__":
    unittest.main()
