"""A separate system in which packages are installed. It has the packages of this computer."""

import os
import pathlib
import re

from staging import ENGLISH, run

DPKG_STATUS = pathlib.Path("/var/lib/dpkg/status")

# Only root may set the owners of files; with fakeroot, any user appears to be root. The scripts of the
# packages run outside the other system, which has no shell, and can tell. Nothing in it has to survive
# a power failure.
DPKG_OPTIONS = ("--force-script-chrootless", "--force-unsafe-io", "--log=")

# For apt in the other system: no archive, no questions.
APT_CONFIGURATION = """
Dir::State "{root}/var/lib/apt";
Dir::State::status "{root}/var/lib/dpkg/status";
Dir::Cache "{root}/var/cache/apt";
Dir::Log "{root}/var/log/apt";
Dir::Etc "{root}/etc/apt";
APT::Sandbox::User "";
APT::Get::Assume-Yes "true";
DPkg::Options {{ {options} }};
"""


class OtherSystem:
    """The system below `root`, with none of the packages in `without`."""

    def __init__(self, root, without):
        self.root = root
        database = root / "var/lib/dpkg"
        for folder in ("info", "updates", "triggers"):
            (database / folder).mkdir(parents=True)
        stanzas = DPKG_STATUS.read_text("utf-8").split("\n\n")
        own = re.compile(rf"Package: ({'|'.join(without)})\n")
        (database / "status").write_text(
            "\n\n".join(stanza for stanza in stanzas if not own.match(stanza)), "utf-8")
        for folder in ("lib/apt/lists/partial", "cache/apt/archives/partial", "log/apt"):
            (root / "var" / folder).mkdir(parents=True)
        options = "".join(f'"{option}"; ' for option in (f"--root={root}", *DPKG_OPTIONS))
        self.configuration = root / "var/lib/apt/apt.conf"
        self.configuration.write_text(APT_CONFIGURATION.format(root=root, options=options), "utf-8")

    def dpkg(self, *arguments):
        return self.as_root("dpkg", f"--root={self.root}", *DPKG_OPTIONS, *arguments)

    def apt(self, *arguments):
        return self.as_root("apt-get", *arguments)

    def as_root(self, *command):
        return run("fakeroot", *command, env=os.environ | ENGLISH | {
            "PATH": f"{os.environ['PATH']}:/usr/sbin:/sbin", "APT_CONFIG": str(self.configuration)})

    def files(self):
        return {path.relative_to(self.root).as_posix() for path in self.root.rglob("*")
                if (path.is_symlink() or not path.is_dir())
                and not path.is_relative_to(self.root / "var")}
