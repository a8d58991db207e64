#!/usr/bin/python3
"""Plays a story with the real programs on a display of its own. Usage: play.py PROGRAMS WORK STORY

A story is a text file of commands, one a line, played once for each of its cases:

  case NAME word=text ...     a case; $word stands for the text in all commands, $samples for the sample trial balances
  chooser                     starts the chooser in a new practice and waits until it is in front
  first_start                 starts the chooser where there is no practice
  front TITLE                 waits until this window is in front and has the keyboard
  keys TEXT{ENTER}{ALT+B}     presses keys, whatever is in front
  cross                       closes the window in front by its cross
  stays                       the window in front is there after all that it had to do, and keeps no core busy
  stored FILE SELECT = TEXT   waits until the practice's file holds it; columns of a row are parted by a blank
  copies KEYS = TEXT          presses the keys and copies, until this text is copied
  ended STATUS                waits until the module has ended, with this exit status
  closed                      waits until the chooser has ended with 0, no window that it opened is left,
                              and the day has its backup

What went wrong leaves a picture of the screen and the programs' words in WORK, with the practice."""

import os
import pathlib
import shlex
import shutil
import signal
import sqlite3
import string
import subprocess
import sys
import time

from virtual_display import NeverHappened, VirtualDisplay, wait_for

SAMPLES = pathlib.Path(__file__).resolve().parent.parent / "trial_balance" / "samples"
CHOOSER = "Vorn - Assessee-years of the practice"
NOTES_THE_STATUS = """#!/bin/sh
# Stands where the chooser looks for the module: starts it and notes what it ended with.
rm -f "$(dirname "$0")/status"
"{module}" "$@"
status=$?
echo $status > "$(dirname "$0")/status.new"
mv "$(dirname "$0")/status.new" "$(dirname "$0")/status"
exit $status
"""


def read_story(path):
    cases, commands = [], []
    for number, line in enumerate(path.read_text().splitlines(), 1):
        word, _, rest = line.strip().partition(" ")
        if word == "case":
            name, *told = shlex.split(rest)
            cases.append((name, dict(each.split("=", 1) for each in told)))
        elif word and not word.startswith("#"):
            commands.append((number, word, rest.strip()))
    return cases or [("", {})], commands


def processes_of(session):
    """Number, name and processor time of those that still run in the session."""
    for folder in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            before, _, after = (folder / "stat").read_text().rpartition(")")
        except OSError:  # it ended meanwhile
            continue
        state, _, _, its_session, *rest = after.split()
        if int(its_session) == session and state != "Z":
            yield int(folder.name), before.split("(", 1)[1], (int(rest[7]) + int(rest[8])) / os.sysconf("SC_CLK_TCK")


class Case:
    """One case of a story: its practice, its chooser, and the module that the chooser starts."""

    def __init__(self, programs, folder, screen, log):
        self.folder, self.screen, self.log = folder, screen, log
        self.practice = folder / "practice"
        self.chooser_process = None
        self.found = None  # by the command that waits
        folder.mkdir()
        self.place_programs(programs)

    def place_programs(self, programs):
        beside = self.folder / "programs"
        beside.mkdir()
        try:
            os.link(programs / "pgbp-suite", beside / "pgbp-suite")
        except OSError:  # another file system
            shutil.copy(programs / "pgbp-suite", beside / "pgbp-suite")
        data = self.folder / "share" / "pgbp"
        data.parent.mkdir()
        data.symlink_to((programs / "../share/pgbp").resolve())
        for program in ("pgbp-audit-reader", "pgbp-books-link", "pgbp-report", "pgbp-check"):
            (beside / program).symlink_to(programs / program)
        (beside / "pgbp").write_text(NOTES_THE_STATUS.format(module=programs / "pgbp"))
        (beside / "pgbp").chmod(0o755)
        self.suite = beside / "pgbp-suite"

    def play(self, commands, words):
        for number, command, arguments in commands:
            try:
                getattr(self, command)(string.Template(arguments).substitute(words, samples=SAMPLES))
            except (NeverHappened, AssertionError, AttributeError, KeyError, ValueError, sqlite3.Error) as fault:
                raise NeverHappened(f"line {number}: {command} {arguments}: {fault!r}") from fault

    def chooser(self, _):
        subprocess.run([self.suite, "new", self.practice], check=True, stdout=self.log, stderr=self.log)
        self.first_start("")
        self.front(CHOOSER)

    def first_start(self, _):
        self.chooser_process = subprocess.Popen([self.suite, "--program-folder", self.practice], stdout=self.log,
                                                stderr=self.log, env=self.screen.environment, start_new_session=True)

    def front(self, title):
        self.screen.wait_for_front(title)

    def keys(self, text):
        self.screen.press(text)

    def cross(self, _):
        self.screen.close_front()

    def stays(self, _):
        window = self.screen.title_in_front()

        def at_rest():
            before = sum(used for _, _, used in processes_of(self.chooser_process.pid))
            time.sleep(0.3)
            return sum(used for _, _, used in processes_of(self.chooser_process.pid)) - before < 0.1 or None

        wait_for(lambda: "programs that keep no core busy", at_rest)
        self.front(window)

    def stored(self, arguments):
        file, rest = arguments.split(" ", 1)
        select, expected = rest.rsplit(" = ", 1)

        def holds():
            path = self.practice / "server" / f"{file}.mdb"
            with sqlite3.connect(f"file:{path}?mode=ro", uri=True, timeout=5) as data:
                rows = [" ".join(map(str, row)) for row in data.execute(select)]
            data.close()
            self.found = " | ".join(rows)
            return self.found == expected or None

        wait_for(lambda: f'"{expected}" in {file}; there is "{self.found}"', holds)

    def copies(self, arguments):
        keys, expected = arguments.split(" = ", 1)

        def copies_it():
            self.screen.take_clipboard()
            self.keys(keys + "{CTRL+C}")
            self.found = None
            for _ in range(20):  # the window may just have taken the focus elsewhere: the keys are pressed again then
                self.found = self.screen.copied()
                if self.found is not None:
                    break
                time.sleep(0.1)
            return self.found == expected or None

        wait_for(lambda: f'"{expected}" to be copied; "{self.found}" was', copies_it)

    def ended(self, status):
        noted = self.folder / "programs" / "status"
        wait_for(lambda: "the end of the module", lambda: noted.exists() or None)
        found = noted.read_text().strip()
        noted.unlink()
        assert found == status, f"it ended with {found}"

    def closed(self, _):
        status = wait_for(lambda: "the end of the chooser", self.chooser_process.poll)
        assert status == 0, f"it ended with {status}"
        left = [name for _, name, _ in processes_of(self.chooser_process.pid)]
        assert not left, f"left behind: {left}"
        wait_for(lambda: "the backup of the day", lambda: list((self.practice / "backups").glob("*-1")) or None)

    def end(self):
        if self.chooser_process:
            for number, _, _ in processes_of(self.chooser_process.pid):
                os.kill(number, signal.SIGKILL)
            self.chooser_process.wait()


def main(programs, work, story):
    cases, commands = read_story(story)
    shutil.rmtree(work, ignore_errors=True)
    work.mkdir(parents=True)
    home = work / "home"
    home.mkdir()
    environment = {name: value for name, value in os.environ.items() if name == "PATH" or name.endswith("SAN_OPTIONS")}
    environment |= {"HOME": str(home), "LANG": "C.UTF-8"}
    failures = 0
    with open(work / "programs.log", "w", encoding="utf-8") as log, \
            VirtualDisplay(environment, log) as screen:
        for name, words in cases:
            began = time.monotonic()
            case = Case(programs, work / (name or story.stem), screen, log)
            try:
                case.play(commands, words)
                print(f"{story.stem} {name}: {time.monotonic() - began:.1f} s")
            except NeverHappened as fault:
                failures += 1
                screen.picture(case.folder / "screen.png")
                print(f"{story.stem} {name}: {fault}\n"
                      f"  the screen: {case.folder}/screen.png, the programs' words: {work}/programs.log")
            finally:
                case.end()
    if not failures:
        shutil.rmtree(work)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(*(pathlib.Path(word).resolve() for word in sys.argv[1:4])))
