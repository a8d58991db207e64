#!/usr/bin/env python3
"""Holds the manual pages to what the programs say of themselves. Usage: pages.py PROGRAMS

Each program has a page that the page checker accepts and that has all sections. Options, commands with their
arguments, numbers of a status and environment variables are the same in the page and in "--help"."""

import pathlib
import re
import subprocess
import sys

PAGES = pathlib.Path(__file__).resolve().parent.parent.parent / "packaging" / "man"
SOURCES = PAGES.parent.parent / "src"
SECTIONS = ["NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "FILES", "EXIT STATUS", "SEE ALSO"]


def output_of(*words):
    return subprocess.run(words, check=True, capture_output=True, text=True).stdout


class Page:
    def __init__(self, program):
        file = PAGES / f"{program}.1"
        self.complaints = subprocess.run(["mandoc", "-T", "lint", "-W", "warning", file], capture_output=True,
                                         text=True).stdout
        text = re.sub(".\b", "", output_of("mandoc", "-T", "ascii", "-O", "width=1000", file))
        parts = re.split(r"^([A-Z][A-Z ]+)$", text, flags=re.M)
        self.sections = dict(zip(parts[1::2], parts[2::2]))
        self.text = " ".join(text.split())

    def entries(self, section):
        """The heads of a section's list, which stand five columns in."""
        return set(re.findall(r"^ {5}(\S.*?)(?:  .*)?$", self.sections.get(section, ""), flags=re.M))


def options_in(text):
    return set(re.findall(r"(?<![\w-])--[a-z][a-z-]*", text))


def commands_of_suite(said):
    """Each command with its arguments, as the usage has them."""
    return set(re.findall(r"^pgbp-suite ([a-z].*)$", said, flags=re.M))


def commands_of_drive(said):
    """The names alone: their arguments are an example in the one and are named in the other."""
    return set(re.findall(r"^  ([a-z]+) ", said, flags=re.M))


def faults_of(program, programs):
    page = Page(program)
    said = output_of(programs / program, "--help")
    if page.complaints:
        yield page.complaints
    for section in SECTIONS:
        if section not in page.sections:
            yield f"there is no section {section}"
    told = options_in(said) | {"--help"}
    listed = options_in(" ".join(page.entries("OPTIONS")))
    if told - options_in(page.sections["COMMANDS"] if "COMMANDS" in page.sections else "") - listed or listed - told:
        yield f"options: the page has {sorted(listed)}, --help {sorted(told)}"
    if program == "pgbp-suite":
        commands = page.entries("COMMANDS")
        yield from (f"command in one of the two only: {each}" for each in commands ^ commands_of_suite(said))
        kinds = re.findall(r"\d\d [A-Z][^\d]*?(?=  |\n)", said[said.index("STATUS:"):])
        yield from (f"status {kind} is missing" for kind in kinds if kind not in page.text)
    if program == "pgbp-drive":
        commands = {each.split()[0] for each in page.entries("COMMANDS")}
        yield from (f"command in one of the two only: {each}" for each in commands ^ commands_of_drive(said))
        yield from (f"key {key} is missing" for key in set(re.findall(r"\{[A-Z0-9+]+\}", said)) if key not in page.text)
    yield from (f"{name} is missing" for name in set(re.findall(r"\b[A-Z]+_[A-Z_]+\b", said)) if name not in page.text)


def main():
    programs = pathlib.Path(sys.argv[1])
    installed = re.search(r"set\(programs ([^)]*)\)", (PAGES.parent.parent / "cmake/Packaging.cmake").read_text())
    faults = [f"{program}: {fault}" for program in installed[1].split() for fault in faults_of(program, programs)]
    read = {name for source in SOURCES.rglob("*.cpp") for name in re.findall(r'"(PGBP_[A-Z_]+)"', source.read_text())}
    pages = "".join(page.read_text() for page in PAGES.glob("*.1"))
    faults += [f"no page tells of {name}" for name in sorted(read) if name not in pages]
    print("\n".join(faults) or "the pages tell what the programs do")
    return 1 if faults else 0


sys.exit(main())
