"""The commands and options of the installed programs, from their help."""

import functools
import re

from staging import Staged

PROGRAMS = ("modulinfo", "modulinfo-panel")


class Programs(Staged):
    @classmethod
    @functools.cache
    def help_of(cls, *command):
        return cls.run_program(*command, "--help")

    def commands_of(self, *command):
        found = re.search(r"^Subcommands:\n(.*?)^$", self.help_of(*command), re.M | re.S)
        return re.findall(r"^  (\w+)", found[1], re.M) if found else []

    def everything(self, *command):
        """The command and all its subcommands."""
        yield command
        for below in self.commands_of(*command):
            yield from self.everything(*command, below)

    def options_of(self, *command):
        return set(re.findall(r"^ *(?:-h,)?(--\w+)", self.help_of(*command), re.M))
