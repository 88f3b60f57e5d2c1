"""The pages of the manual and the completion of the shell know what the programs can do."""

import functools
import gzip
import re
import subprocess
import unittest

from staging import Staged, run

PROGRAMS = ("modulinfo", "modulinfo-panel")

# Asks the completion for what may follow: complete.sh SCRIPT WORD... (the last word is begun).
COMPLETE = """
source "$1"
shift
COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
"$(complete -p "$1" | sed 's/.*-F \\([^ ]*\\).*/\\1/')"
printf '%s\\n' "${COMPREPLY[@]}"
"""


class Papers(Staged):
    @classmethod
    @functools.cache
    def help_of(cls, *command):
        return cls.run_program(*command, "--help")

    def commands_of(self, *command):
        found = re.search(r"^Subcommands:\n(.*?)^$", self.help_of(*command), re.M | re.S)
        return re.findall(r"^  (\w+)", found[1], re.M) if found else []

    def everything(self, *command):
        """The command and all that stand below it."""
        yield command
        for below in self.commands_of(*command):
            yield from self.everything(*command, below)

    def options_of(self, *command):
        return set(re.findall(r"^ *(?:-h,)?(--\w+)", self.help_of(*command), re.M))

    def manual(self, program):
        page = gzip.decompress((self.prefix / f"share/man/man1/{program}.1.gz").read_bytes())
        return page.decode("utf-8").replace("\\-", "-")

    def complete(self, *words):
        script = self.prefix / "share/bash-completion/completions" / words[0]
        return set(run("bash", "-c", COMPLETE, "complete.sh", script, *words, cwd=self.home,
                       env=self.in_path).split())

    def test_the_manual_knows_every_command_and_option(self):
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
                env=self.environment | {"LC_ALL": "C.UTF-8", "MANWIDTH": "80"}, check=True)
            self.assertEqual(shown.stderr, "")
            self.assertIn("EXIT", shown.stdout)

    def test_completion_offers_the_commands(self):
        for command in self.everything("modulinfo"):
            offered = self.complete(*command, "")
            self.assertEqual(offered, set(self.commands_of(*command)), command)

    def test_completion_offers_the_options(self):
        for program in PROGRAMS:
            for command in self.everything(program):
                self.assertEqual(self.complete(*command, "-"), self.options_of(*command), command)

    def test_completion_goes_on_from_what_is_typed(self):
        self.assertEqual(self.complete("modulinfo", "cat"), {"catalogue"})
        self.assertEqual(self.complete("modulinfo", "read", "--js"), {"--json"})

    def test_completion_offers_values(self):
        self.assertIn("NFC", self.complete("modulinfo", "read", "--port", ""))
        self.assertEqual(self.complete("modulinfo-panel", "--language", "1"), {"1", "10", "11"})

    def test_completion_offers_the_ports_of_the_computer(self):
        self.run_program("modulinfo", "settings", "set", "Ports/COM77/Device", "/dev/null")
        self.assertIn("COM77", self.complete("modulinfo", "read", "--port", "COM"))


if __name__ == "__main__":
    unittest.main()
