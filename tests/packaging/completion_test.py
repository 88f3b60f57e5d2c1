"""Shell completion offers the commands and options of the programs."""

import os
import pty
import subprocess
import threading
import unittest

from programs import PROGRAMS, Programs
from staging import PATIENCE, run

# Prints the completions that bash offers: complete.sh SCRIPT WORD... (the last word is incomplete).
COMPLETE = """
source "$1"
shift
COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
"$(complete -p "$1" | sed 's/.*-F \\([^ ]*\\).*/\\1/')"
printf '%s\\n' "${COMPREPLY[@]}"
"""

# Makes zsh write its completions to a pipe whenever it completes.
ZSHRC = """
PROMPT= fpath=("$COMPLETIONS" $fpath)
autoload -U compinit && compinit -D -u
zstyle ':completion:*' insert-tab false
compadd() {
    local -a found
    [[ ${@[1,(i)(-|--)]} == *-[AOD]\\ * ]] || {
        builtin compadd -O found "$@"
        offered+=($found)
    }
    builtin compadd "$@"
}
answer() {
    print -rl -- $offered > "$ANSWERS"
    offered=() comppostfuncs=(answer)
}
offered=() comppostfuncs=(answer)
"""
CLEAR_LINE = b"\x15"


class Completion:
    """Tests for every shell; each shell is asked in its own way."""

    def test_offers_the_commands(self):
        for command in self.everything("modulinfo"):
            if self.commands_of(*command):
                self.assertEqual(self.complete(*command, ""), set(self.commands_of(*command)))

    def test_offers_files_where_no_command_can_follow(self):
        (self.home / "module.json").touch()
        for command in (("modulinfo", "simulate"), ("modulinfo", "read", "--simulate"),
                        ("modulinfo-panel", "--record")):
            self.assertIn(self.complete(*command, "mod"), self.files("module.json"), command)

    def test_offers_the_options(self):
        for program in PROGRAMS:
            for command in self.everything(program):
                self.assertEqual(self.complete(*command, "-"), self.options_of(*command), command)

    def test_completes_what_has_been_typed(self):
        self.assertEqual(self.complete("modulinfo", "cat"), {"catalogue"})
        self.assertEqual(self.complete("modulinfo", "read", "--js"), {"--json"})
        self.assertEqual(self.complete("modulinfo", "read", "--json", "--tr"), {"--trace"})

    def test_offers_values(self):
        self.assertIn("NFC", self.complete("modulinfo", "read", "--port", ""))
        self.assertIn("115200", self.complete("modulinfo", "read", "--baudrate", "1"))
        self.assertEqual(self.complete("modulinfo-panel", "--language", "1"), {"1", "10", "11"})

    def test_offers_the_ports_of_the_computer(self):
        self.run_program("modulinfo", "settings", "set", "Ports/COM77/Device", "/dev/null")
        self.assertIn("COM77", self.complete("modulinfo", "read", "--port", "COM"))


class Bash(Completion, Programs):
    def complete(self, *words):
        script = self.prefix / "share/bash-completion/completions" / words[0]
        return set(run("bash", "-c", COMPLETE, "complete.sh", script, *words, cwd=self.home,
                       env=self.in_path).split())

    @staticmethod
    def files(_name):
        """Bash itself offers files when a completion offers nothing."""
        return [set()]


class Zsh(Completion, Programs):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        (cls.home / ".zshrc").write_text(ZSHRC, "utf-8")
        cls.answers = cls.folder / "answers"
        os.mkfifo(cls.answers)
        master, terminal = pty.openpty()
        cls.addClassCleanup(os.close, master)
        # pylint: disable-next=consider-using-with
        cls.shell = subprocess.Popen(
            ["zsh", "-d", "-i"], stdin=terminal, stdout=terminal, stderr=terminal, cwd=cls.home,
            start_new_session=True, env=cls.in_path | {
                "ZDOTDIR": str(cls.home), "TERM": "vt100", "ANSWERS": str(cls.answers),
                "COMPLETIONS": str(cls.prefix / "share/zsh/vendor-completions")})
        os.close(terminal)
        cls.addClassCleanup(cls.shell.wait)
        cls.addClassCleanup(cls.shell.kill)
        cls.keyboard = master
        threading.Thread(target=cls.watch, daemon=True).start()

    @classmethod
    def watch(cls):
        """Reads what the shell draws, so that its terminal never fills up."""
        try:
            while os.read(cls.keyboard, 4096):
                pass
        except OSError:
            pass

    def complete(self, *words):
        os.write(self.keyboard, CLEAR_LINE + " ".join(words).encode() + b"\t")
        return set(self.answer().split())

    def answer(self):
        # Stops waiting if the shell does not answer.
        patience = threading.Timer(PATIENCE, self.give_up)
        patience.start()
        try:
            return self.answers.read_text("utf-8")
        finally:
            patience.cancel()

    def give_up(self):
        self.answers.write_text("the shell did not answer\n", "utf-8")

    @staticmethod
    def files(name):
        return [{name}]


if __name__ == "__main__":
    unittest.main()
