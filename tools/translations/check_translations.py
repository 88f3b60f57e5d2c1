"""Checks the .ts files of a program against its sources; exits with 1 and a line for each fault.

    check_translations.py --lupdate LUPDATE --sources FOLDER FILE.ts...

A fault is a word that is missing, unfinished or no longer in the sources, and a translation whose
places (%1, %n), access keys (&F), file filter, final full stop, dots or blanks do not match the source.
"""

import argparse
import collections
import dataclasses
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

PLACE = re.compile(r"%L?\d{1,2}|%L?n")
ACCESS_KEY = re.compile(r"&(?=[^&\s])")
FILE_FILTER = re.compile(r"\([^()]*\*\.[^()]*\)$")
WRONG_BLANK = re.compile(r"^\s|\s$|\s\s| [:.,;?!]")
FULL_STOPS = (".", "。")
ELLIPSIS = "…"


@dataclasses.dataclass(frozen=True)
class Message:
    """One message of a .ts file; `forms` holds one text, or one for each plural form."""
    context: str
    source: str
    remark: str
    state: str
    is_plural: bool
    forms: tuple

    def name(self):
        return f'{self.context}: "{self.source}"'

    def key(self):
        return self.context, self.source, self.remark


def read_messages(file):
    """The messages of a .ts file."""
    for context in ElementTree.parse(file).getroot().iter("context"):
        for message in context.iter("message"):
            translation = message.find("translation")
            is_plural = message.get("numerus") == "yes"
            texts = translation.iter("numerusform") if is_plural else [translation]
            yield Message(context.findtext("name", ""), message.findtext("source", ""),
                          message.findtext("comment", ""), translation.get("type", ""), is_plural,
                          tuple("".join(text.itertext()) for text in texts))


def places(text, is_plural):
    """How often each place occurs. A plural form may do without its number."""
    found = collections.Counter(PLACE.findall(text))
    if is_plural:
        del found["%n"], found["%Ln"]
    return found


def is_numbered(text):
    return re.search("%L?n", text) is not None


def faults_of_form(source, text, is_plural):
    """What is wrong with a translation of the source."""
    if not text.strip():
        yield "the translation is empty"
        return
    if places(source, is_plural) != places(text, is_plural) or (
            is_numbered(text) and not is_numbered(source)):
        yield "the places differ"
    if len(ACCESS_KEY.findall(source)) != len(ACCESS_KEY.findall(text)):
        yield "the access keys differ"
    if FILE_FILTER.findall(source) != FILE_FILTER.findall(text):
        yield "the file filters differ"
    if source.endswith(FULL_STOPS) != text.endswith(FULL_STOPS):
        yield "one of the two ends with a full stop"
    if source.endswith(ELLIPSIS) != text.endswith(ELLIPSIS):
        yield "one of the two ends with dots"
    if WRONG_BLANK.search(text):
        yield "a blank too many"


def faults_of_message(message, is_known):
    """What is wrong with a message; `is_known` if its file held it before lupdate."""
    if message.state in ("vanished", "obsolete"):
        yield "no longer in the sources"
    elif not is_known:
        yield "missing"
    elif message.state == "unfinished":
        yield "unfinished"
    else:
        for form in message.forms:
            for fault in faults_of_form(message.source, form, message.is_plural):
                yield f'{fault}: "{form}"'


def faults_of_file(file, updated):
    """The faults of a .ts file, given what lupdate makes of it."""
    known = {message.key() for message in read_messages(file)}
    for message in read_messages(updated):
        for fault in faults_of_message(message, message.key() in known):
            yield f"{file}: {message.name()}: {fault}"


def check(lupdate, sources, files):
    """The faults of all files; the files stay as they are."""
    with tempfile.TemporaryDirectory() as folder:
        updated = [pathlib.Path(folder, file.name) for file in files]
        for file, copy in zip(files, updated):
            shutil.copyfile(file, copy)
        subprocess.run([lupdate, "-silent", "-locations", "none", sources, "-ts", *updated],
                       check=True)
        return [fault for file, copy in zip(files, updated) for fault in faults_of_file(file, copy)]


def main():
    parser = argparse.ArgumentParser(description="Checks .ts files against the sources.")
    parser.add_argument("--lupdate", required=True, help="the program lupdate")
    parser.add_argument("--sources", required=True, help="the folder of the sources")
    parser.add_argument("files", nargs="+", type=pathlib.Path, metavar="FILE.ts")
    arguments = parser.parse_args()
    faults = check(arguments.lupdate, arguments.sources, arguments.files)
    for fault in faults:
        print(fault, file=sys.stderr)
    if faults:
        print("Build the target update_translations and open the files in Linguist.",
              file=sys.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
